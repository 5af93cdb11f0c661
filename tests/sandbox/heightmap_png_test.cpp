#include "sandbox/core/heightmap_png.h"
#include "sandbox/core/png_picture.h"
#include "support/png_bytes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <png.h>

namespace {

using testing::AnyOf;
using testing::StartsWith;

using Bytes = std::vector<std::uint8_t>;

struct Picture {
    int width = 0;
    int height = 0;
    int bits = 16;
    int colourType = PNG_COLOR_TYPE_GRAY;
    bool interlaced = false;
};

/// A picture whose samples are `value(x, y)`.
template <class Value> Bytes pictureFile(const Picture& picture, Value value) {
    const int channels = picture.colourType == PNG_COLOR_TYPE_RGB ? 3 : 1;
    Bytes samples;
    for (int i = 0; i < picture.width * channels * picture.height; ++i) {
        const int pixel = i / channels;
        const int sample = value(pixel % picture.width, pixel / picture.width);
        if (picture.bits == 16) {
            samples.push_back(static_cast<std::uint8_t>(sample >> 8));
        }
        samples.push_back(static_cast<std::uint8_t>(sample));
    }
    return makePng(picture.width, picture.height, picture.colourType, picture.bits, picture.interlaced,
                   std::move(samples));
}

int pattern(int x, int y) {
    return (x * 7919 + y * 104729 + 12345) & 0xFFFF;
}

/// The file with another size in its header, which follows the signature and the chunk's length and type.
Bytes withSize(Bytes file, std::uint32_t width, std::uint32_t height) {
    for (std::size_t i = 0; i < 4; ++i) {
        file[16 + i] = static_cast<std::uint8_t>(width >> (24U - 8U * i));
        file[20 + i] = static_cast<std::uint8_t>(height >> (24U - 8U * i));
    }
    return file;
}

TEST(HeightmapPng, WhatIsSavedComesBackExactly) {
    constexpr int EDGE = 37;
    for (const HeightmapBits bits : {HeightmapBits::EIGHT, HeightmapBits::SIXTEEN}) {
        std::vector<std::uint16_t> heights;
        for (int i = 0; i < EDGE * EDGE; ++i) {
            heights.push_back(static_cast<std::uint16_t>(pattern(i % EDGE, i / EDGE) & highestHeight(bits)));
        }
        heights.back() = static_cast<std::uint16_t>(highestHeight(bits));
        const auto file = encodeHeightmap(EDGE, heights, bits);
        ASSERT_TRUE(file.has_value());
        const HeightmapReading reading = decodeHeightmap(*file);
        EXPECT_EQ(reading.error, "");
        EXPECT_EQ(reading.map.heights, heights);
        EXPECT_EQ(reading.pictureBits, static_cast<int>(bits));
        EXPECT_TRUE(isOurPng(*file) && isOurPng(std::span(*file).first(40)));
        EXPECT_FALSE(isOurPng(pictureFile({.width = 9, .height = 9}, pattern)));
    }
}

TEST(HeightmapPng, PixelValuesAreHeightsInEveryForm) {
    for (const int bits : {8, 16}) {
        for (const bool interlaced : {false, true}) {
            const int mask = bits == 8 ? 0xFF : 0xFFFF;
            const auto value = [&](int x, int y) { return pattern(x, y) & mask; };
            const HeightmapReading reading = decodeHeightmap(
                pictureFile({.width = 13, .height = 13, .bits = bits, .interlaced = interlaced}, value));
            ASSERT_EQ(reading.error, "") << bits << " bits, interlaced " << interlaced;
            std::vector<std::uint16_t> heights;
            for (int i = 0; i < 13 * 13; ++i) {
                heights.push_back(static_cast<std::uint16_t>(value(i % 13, i / 13)));
            }
            EXPECT_EQ(reading.map.heights, heights) << bits << " bits, interlaced " << interlaced;
        }
    }
}

TEST(HeightmapPng, TakesTheSquareInTheMiddle) {
    struct Case {
        int width, height, edge, left, top;
    };
    for (const Case& c :
         {Case{10, 4, 4, 3, 0}, Case{5, 12, 5, 0, 3}, Case{7, 2, 2, 2, 0}, Case{3, 2, 2, 0, 0}}) {
        const HeightmapReading reading =
            decodeHeightmap(pictureFile({.width = c.width, .height = c.height}, pattern));
        ASSERT_EQ(reading.error, "");
        EXPECT_TRUE(reading.isCropped());
        EXPECT_EQ(reading.pictureWidth, c.width);
        EXPECT_EQ(reading.pictureHeight, c.height);
        ASSERT_EQ(reading.map.edge, c.edge);
        EXPECT_EQ(reading.map.heights.front(), pattern(c.left, c.top));
        EXPECT_EQ(reading.map.heights.back(), pattern(c.left + c.edge - 1, c.top + c.edge - 1));
    }
}

TEST(HeightmapPng, CutAndDamagedFilesAreRefused) {
    const Bytes file = pictureFile({.width = 9, .height = 9}, pattern);
    ASSERT_EQ(decodeHeightmap(file).error, "");
    for (std::size_t at = 0; at < file.size(); ++at) {
        const HeightmapReading reading = decodeHeightmap(std::span(file).first(at));
        ASSERT_THAT(reading.error, AnyOf("it is not a PNG file", "the file ends early",
                                         StartsWith("the file is too short for")))
            << "cut to " << at << " of " << file.size() << " bytes";
        ASSERT_TRUE(reading.map.heights.empty());
        Bytes damaged = file;
        damaged[at] ^= 0x10U;
        EXPECT_NE(decodeHeightmap(damaged).error, "") << "byte " << at;
    }
}

TEST(HeightmapPng, RefusalsSayWhy) {
    const Bytes small = pictureFile({.width = 4, .height = 4}, pattern);
    struct Case {
        Bytes file;
        std::string error;
    };
    const std::vector<Case> cases{
        {{'B', 'M', 1, 2, 3, 4}, "it is not a PNG file"},
        {pictureFile({.width = 4, .height = 4, .colourType = PNG_COLOR_TYPE_RGB}, pattern),
         "the picture is not plain grey; a heightmap is grey with 8 or 16 bits a pixel"},
        {pictureFile({.width = 8, .height = 8, .bits = 4}, [](int, int) { return 0; }),
         "the picture has 4 bits a pixel; a heightmap has 8 or 16"},
        {pictureFile({.width = 1, .height = 9}, pattern),
         "the picture is 1 x 9; a map has at least 2 x 2 points"},
        {withSize(small, 8194, 4), "the picture is 8194 x 4; at most 8193 x 8193 can be opened"},
        {withSize(small, 8193, 8193), "the file is too short for a picture of 8193 x 8193"},
        {withSize(small, 0xFFFFFFFFU, 0xFFFFFFFFU),
         "the picture is 4294967295 x 4294967295; at most 8193 x 8193 can be opened"},
        {withSize(small, 0, 4), "the picture is 0 x 4; a map has at least 2 x 2 points"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(decodeHeightmap(c.file).error, c.error);
    }
}

} // namespace
