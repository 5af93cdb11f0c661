#pragma once

#include <string>

/// A TGA file of greys (8 bits a pixel) or of true colour (24, 32) with these pixels, from the bottom row up
/// unless `descriptor` says otherwise.
inline std::string makeTga(int width, int height, int bits, const std::string& pixels, int descriptor = 0) {
    std::string file(18, '\0');
    const auto put = [&file](std::size_t at, int value) { file[at] = static_cast<char>(value); };
    put(2, bits == 8 ? 3 : 2);
    put(12, width % 256);
    put(13, width / 256);
    put(14, height % 256);
    put(15, height / 256);
    put(16, bits);
    put(17, descriptor);
    return file + pixels;
}
