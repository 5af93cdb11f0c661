#pragma once

#include "engine/qx_colour.h"

#include <cstdint>
#include <string>
#include <vector>

using Bytes = std::vector<std::uint8_t>;

/// A way to store a test picture as a TGA file.
struct TgaLayout {
    const char* what;
    int kind;      ///< 1 mapped, 2 true colour, 3 grey
    int pixelBits; ///< bits of a stored pixel
    int mapBits = 0;
    int mapFirst = 0;
    int alphaBits = 0;
    bool isPacked = false;
    bool fromRight = false;
    bool fromTop = false;
    int idLength = 0;
    bool hasUnusedMap = false; ///< a map of two entries that the pixels do not use
};

/// A picture of distinct pixels and runs, width x height from the top left; its colours and greys survive in
/// every depth, and its alpha is 0 or 255.
struct TestPicture {
    static constexpr int WIDTH = 7;
    static constexpr int HEIGHT = 4;

    explicit TestPicture(bool isGrey, bool hasAlpha);
    std::vector<qxCColour> pixels;
};

/// The TGA file of the picture in that layout.
Bytes makeTga(const TgaLayout& layout, const TestPicture& picture);

/// The 18 bytes of a header with everything else zero.
Bytes tgaHeader(int kind, int width, int height, int pixelBits);
