#include "engine/tga_bytes.h"

#include <algorithm>
#include <iterator>

namespace {

void putWord(Bytes& bytes, int word) {
    bytes.push_back(static_cast<std::uint8_t>(word & 0xFF));
    bytes.push_back(static_cast<std::uint8_t>(word >> 8 & 0xFF));
}

void append(Bytes& bytes, const Bytes& more) {
    std::ranges::copy(more, std::back_inserter(bytes));
}

// Where no alpha bit is declared, or none exists, its place holds noise.
Bytes colourBytes(const qxCColour& c, int bits, int alphaBits) {
    if (bits == 24) {
        return {c.b, c.g, c.r};
    }
    if (bits == 32) {
        return {c.b, c.g, c.r, c.a};
    }
    Bytes bytes;
    const bool hasAlphaBit = bits == 16 && alphaBits > 0;
    const auto five = [](int channel) { return channel >> 3; };
    putWord(bytes, five(c.b) | five(c.g) << 5 | five(c.r) << 10 |
                       ((hasAlphaBit ? c.a != 0 : c.r == 131) ? 0x8000 : 0));
    return bytes;
}

// The picture's pixels in the order in which the file stores them.
std::vector<qxCColour> inFileOrder(const TgaLayout& layout, const std::vector<qxCColour>& pixels) {
    std::vector<qxCColour> ordered;
    constexpr std::size_t WIDTH = TestPicture::WIDTH;
    constexpr std::size_t HEIGHT = TestPicture::HEIGHT;
    for (std::size_t row = 0; row < HEIGHT; ++row) {
        const std::size_t y = layout.fromTop ? row : HEIGHT - 1 - row;
        for (std::size_t column = 0; column < WIDTH; ++column) {
            const std::size_t x = layout.fromRight ? WIDTH - 1 - column : column;
            ordered.push_back(pixels[y * WIDTH + x]);
        }
    }
    return ordered;
}

std::vector<qxCColour> coloursOf(const std::vector<qxCColour>& pixels) {
    std::vector<qxCColour> map;
    for (const qxCColour& pixel : pixels) {
        if (std::ranges::find(map, pixel) == map.end()) {
            map.push_back(pixel);
        }
    }
    return map;
}

Bytes pixelBytes(const TgaLayout& layout, const std::vector<qxCColour>& map, const qxCColour& pixel) {
    if (layout.kind == 2) {
        return colourBytes(pixel, layout.pixelBits, layout.alphaBits);
    }
    const int value = layout.kind == 3
                          ? pixel.r | pixel.a << 8
                          : static_cast<int>(std::ranges::find(map, pixel) - map.begin()) + layout.mapFirst;
    Bytes bytes;
    putWord(bytes, value);
    bytes.resize(static_cast<std::size_t>(layout.pixelBits) / 8);
    return bytes;
}

// Runs become repeat packets, what lies between them packets of pixels; neither stops at the end of a row.
void putPacked(Bytes& bytes, const std::vector<Bytes>& pixels) {
    std::size_t i = 0;
    while (i < pixels.size()) {
        std::size_t run = 1;
        while (i + run < pixels.size() && pixels[i + run] == pixels[i]) {
            ++run;
        }
        std::size_t end = i + run;
        if (run == 1) {
            while (end < pixels.size() && (end + 1 == pixels.size() || pixels[end] != pixels[end + 1])) {
                ++end;
            }
        }
        const std::size_t count = end - i;
        bytes.push_back(static_cast<std::uint8_t>((run > 1 ? 0x80U : 0U) | (count - 1)));
        for (std::size_t k = i; k < (run > 1 ? i + 1 : end); ++k) {
            append(bytes, pixels[k]);
        }
        i = end;
    }
}

} // namespace

TestPicture::TestPicture(bool isGrey, bool hasAlpha) {
    // What five bits a channel can hold: 0, 16 and 31 of 31.
    constexpr int LEVELS[] = {0, 131, 255};
    for (int i = 0; i < WIDTH * HEIGHT; ++i) {
        const int code = i < 9 ? i : (i < 14 ? 9 : (i == 16 ? 14 : i - 2));
        const int alpha = hasAlpha && code % 5 == 2 ? 0 : 255;
        if (isGrey) {
            pixels.emplace_back(code * 9, code * 9, code * 9, alpha);
        } else {
            pixels.emplace_back(LEVELS[code % 3], LEVELS[code / 3 % 3], LEVELS[code / 9 % 3], alpha);
        }
    }
}

Bytes tgaHeader(int kind, int width, int height, int pixelBits) {
    Bytes bytes(18);
    bytes[2] = static_cast<std::uint8_t>(kind);
    bytes[12] = static_cast<std::uint8_t>(width & 0xFF);
    bytes[13] = static_cast<std::uint8_t>(width >> 8);
    bytes[14] = static_cast<std::uint8_t>(height & 0xFF);
    bytes[15] = static_cast<std::uint8_t>(height >> 8);
    bytes[16] = static_cast<std::uint8_t>(pixelBits);
    return bytes;
}

Bytes makeTga(const TgaLayout& layout, const TestPicture& picture) {
    std::vector<qxCColour> map;
    if (layout.kind == 1) {
        map = coloursOf(picture.pixels);
    }
    if (layout.hasUnusedMap) {
        map.assign(2, qxCColour(1, 2, 3, 4));
    }
    Bytes bytes = tgaHeader(layout.kind | (layout.isPacked ? 8 : 0), TestPicture::WIDTH, TestPicture::HEIGHT,
                            layout.pixelBits);
    bytes[0] = static_cast<std::uint8_t>(layout.idLength);
    bytes[1] = map.empty() ? 0 : 1;
    bytes[3] = static_cast<std::uint8_t>(layout.mapFirst);
    bytes[5] = static_cast<std::uint8_t>(map.size());
    bytes[7] = static_cast<std::uint8_t>(layout.mapBits);
    bytes[17] = static_cast<std::uint8_t>(layout.alphaBits | (layout.fromRight ? 0x10 : 0) |
                                          (layout.fromTop ? 0x20 : 0));
    append(bytes, Bytes(static_cast<std::size_t>(layout.idLength), 0xEE));
    for (const qxCColour& colour : map) {
        append(bytes, colourBytes(colour, layout.mapBits, layout.alphaBits));
    }
    std::vector<Bytes> pixels;
    for (const qxCColour& pixel : inFileOrder(layout, picture.pixels)) {
        pixels.push_back(pixelBytes(layout, map, pixel));
    }
    if (layout.isPacked) {
        putPacked(bytes, pixels);
    } else {
        for (const Bytes& pixel : pixels) {
            append(bytes, pixel);
        }
    }
    return bytes;
}
