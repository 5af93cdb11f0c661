#include "engine/memory/image/image_decoder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using Bytes = std::vector<std::uint8_t>;
using Pixels = std::vector<qxCColour>;

/// Numbers in the header of a picture of 3 x 2 pixels; the rest is zero.
struct Header {
    int kind;
    int bits;
    int descriptor = 0;
    int mapBits = 0;
    int mapFirst = 0;
    int mapLength = 0;
    int idLength = 0;
};

Bytes makeTga(const Header& h, const Bytes& body) {
    Bytes file(18 + body.size());
    std::ranges::copy(body, file.begin() + 18);
    const auto put = [&file](std::size_t at, int value) { file[at] = static_cast<std::uint8_t>(value); };
    put(0, h.idLength);
    put(1, h.mapLength > 0 ? 1 : 0);
    put(2, h.kind);
    put(3, h.mapFirst);
    put(5, h.mapLength);
    put(7, h.mapBits);
    put(12, 3);
    put(14, 2);
    put(16, h.bits);
    put(17, h.descriptor);
    return file;
}

constexpr qxCColour RED(255, 0, 0, 255), LIME(0, 255, 0, 255), BLUE(0, 0, 255, 255), NONE(0, 0, 0, 0),
    CLEAR_RED(255, 0, 0, 0);
const Pixels PICTURE{RED, LIME, BLUE, RED, RED, LIME};

qxCColour grey(int level, int alpha = 255) {
    return {level, level, level, alpha};
}

struct TgaCase {
    const char* what;
    Header header;
    Bytes body; ///< what follows the header
    Pixels pixels = PICTURE;
};

const std::vector<TgaCase>& tgaCases() {
    static const std::vector<TgaCase> CASES = {
        {"24 bits, from the bottom",
         {2, 24},
         {0, 0, 255, 0, 0, 255, 0, 255, 0, 0, 0, 255, 0, 255, 0, 255, 0, 0}},
        {"from the top", {2, 24, 0x20}, {0, 0, 255, 0, 255, 0, 255, 0, 0, 0, 0, 255, 0, 0, 255, 0, 255, 0}},
        {"from the top right",
         {2, 24, 0x30},
         {255, 0, 0, 0, 255, 0, 0, 0, 255, 0, 255, 0, 0, 0, 255, 0, 0, 255}},
        {"from the bottom right, with a note and a map nobody uses",
         {2, 24, 0x10, 16, 0, 1, 2},
         {9, 9, 7, 7, 0, 255, 0, 0, 0, 255, 0, 0, 255, 255, 0, 0, 0, 255, 0, 0, 0, 255}},
        {"packed: a run over the end of a row, then pixels",
         {10, 24, 0x20},
         {2, 0, 0, 255, 0, 255, 0, 255, 0, 0, 0x81, 0, 0, 255, 0, 0, 255, 0}},
        {"packed: the last run promises more than there is",
         {10, 24, 0x20},
         {0x82, 0, 0, 255, 0xFF, 0, 255, 0},
         {RED, RED, RED, LIME, LIME, LIME}},
        {"32 bits",
         {2, 32, 0x28},
         {0, 0, 255, 0, 0, 0, 255, 255, 0, 0, 255, 0, 0, 0, 255, 255, 0, 0, 255, 1, 0, 0, 0, 0},
         {CLEAR_RED, RED, CLEAR_RED, RED, {255, 0, 0, 1}, NONE}},
        {"32 bits whose alpha nobody meant", {10, 32, 0x20}, {0x85, 0, 0, 255, 0}, Pixels(6, RED)},
        {"32 bits that are all meant to be clear",
         {10, 32, 0x28},
         {0x85, 0, 0, 255, 0},
         Pixels(6, CLEAR_RED)},
        {"16 bits with alpha",
         {10, 16, 0x21},
         {0x82, 0, 0xFC, 0x82, 0, 0x7C},
         {RED, RED, RED, CLEAR_RED, CLEAR_RED, CLEAR_RED}},
        {"16 bits without", {10, 16, 0x20}, {0x82, 0, 0xFC, 0x82, 0, 0x7C}, Pixels(6, RED)},
        {"15 bits",
         {10, 15, 0x21},
         {0x82, 0x1F, 0, 0x82, 0x10, 0x42},
         {BLUE, BLUE, BLUE, {131, 131, 131, 255}, {131, 131, 131, 255}, {131, 131, 131, 255}}},
        {"grey", {3, 8, 0x20}, {1, 2, 3, 4, 5, 6}, {grey(1), grey(2), grey(3), grey(4), grey(5), grey(6)}},
        {"grey and alpha",
         {11, 16, 0x28},
         {0x82, 7, 9, 0x82, 8, 255},
         {grey(7, 9), grey(7, 9), grey(7, 9), grey(8), grey(8), grey(8)}},
        {"map of 24 bits that starts at 40; an index outside it is transparent black",
         {1, 8, 0x20, 24, 40, 2},
         {0, 0, 255, 0, 255, 0, 40, 41, 42, 39, 40, 41},
         {RED, LIME, NONE, NONE, RED, LIME}},
        {"map of 32 bits, wide indices",
         {9, 16, 0x28, 32, 0, 1},
         {0, 0, 255, 3, 0x85, 0, 0},
         Pixels(6, {255, 0, 0, 3})},
        {"map of 16 bits with alpha", {9, 8, 0x21, 16, 0, 1}, {0, 0x7C, 0x85, 0}, Pixels(6, CLEAR_RED)},
    };
    return CASES;
}

TEST(Tga, EveryKindGivesThePictureAndNothingComesOfAFileThatEndsEarly) {
    for (const TgaCase& c : tgaCases()) {
        SCOPED_TRACE(c.what);
        Bytes file = makeTga(c.header, c.body);
        for (std::size_t size = 0; size < file.size(); ++size) {
            ASSERT_FALSE(decodeImage(std::span(file).first(size))) << size << " bytes";
        }
        for (const std::size_t extraBytes : {0U, 26U}) {
            file.resize(file.size() + extraBytes);
            const auto image = decodeImage(file);
            ASSERT_TRUE(image);
            EXPECT_EQ(std::pair(image->width, image->height), std::pair(3, 2));
            EXPECT_EQ(image->pixels, c.pixels);
        }
    }
}

TEST(Tga, HeadersOfNoPictureAreRefused) {
    const Bytes colour = makeTga({2, 24}, Bytes(std::size_t{4097} * 3 * 256));
    const Bytes mapped = makeTga({1, 8, 0, 24, 0, 1}, Bytes(100));
    const struct {
        const char* what;
        const Bytes& good;
        std::size_t offset;
        int value;
    } cases[] = {{"map kind", colour, 1, 2},          {"no image", colour, 2, 0},
                 {"unknown kind", colour, 2, 4},      {"Huffman packed", colour, 2, 32},
                 {"no width", colour, 12, 0},         {"no height", colour, 14, 0},
                 {"width over 4096", colour, 13, 16}, {"height over 4096", colour, 15, 16},
                 {"12 bits", colour, 16, 12},         {"64 bits", colour, 16, 64},
                 {"interleaved", colour, 17, 0x40},   {"no map", mapped, 1, 0},
                 {"no entries", mapped, 5, 0},        {"map of 8 bits", mapped, 7, 8}};
    for (const auto& c : cases) {
        ASSERT_TRUE(decodeImage(c.good));
        Bytes bad = c.good;
        bad[c.offset] = static_cast<std::uint8_t>(c.value);
        EXPECT_FALSE(decodeImage(bad)) << c.what;
    }
}

} // namespace
