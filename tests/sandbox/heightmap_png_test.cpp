#include "sandbox/core/heightmap_png.h"
#include "sandbox/core/png_picture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <png.h>

#include <numeric>

namespace {

using testing::AnyOf;
using testing::HasSubstr;
using testing::StartsWith;

using Bytes = std::vector<std::uint8_t>;

struct Picture {
    int width = 0;
    int height = 0;
    int bits = 16;
    int colourType = PNG_COLOR_TYPE_GRAY;
    int interlace = PNG_INTERLACE_NONE;
};

/// A picture whose samples are `value(x, y)`, written by libpng with its default settings.
template <class Value> Bytes makePng(const Picture& picture, Value value) {
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    Bytes file;
    png_set_write_fn(
        png, &file,
        [](png_structp writer, png_bytep data, std::size_t count) {
            auto* out = static_cast<Bytes*>(png_get_io_ptr(writer));
            out->insert(out->end(), data, data + count);
        },
        [](png_structp) {});
    png_set_IHDR(png, info, static_cast<png_uint_32>(picture.width), static_cast<png_uint_32>(picture.height),
                 picture.bits, picture.colourType, picture.interlace, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    const int channels = picture.colourType == PNG_COLOR_TYPE_RGB ? 3 : 1;
    std::vector<Bytes> rows;
    std::vector<png_bytep> pointers;
    for (int y = 0; y < picture.height; ++y) {
        Bytes row;
        for (int x = 0; x < picture.width * channels; ++x) {
            const int sample = value(x / channels, y);
            if (picture.bits == 16) {
                row.push_back(static_cast<std::uint8_t>(sample >> 8));
            }
            row.push_back(static_cast<std::uint8_t>(sample));
        }
        rows.push_back(std::move(row));
    }
    pointers.reserve(rows.size());
    for (Bytes& row : rows) {
        pointers.push_back(row.data());
    }
    png_set_rows(png, info, pointers.data());
    png_write_png(png, info, PNG_TRANSFORM_IDENTITY, nullptr);
    png_destroy_write_struct(&png, &info);
    return file;
}

int pattern(int x, int y) {
    return (x * 7919 + y * 104729 + 12345) & 0xFFFF;
}

constexpr std::size_t WIDTH_AT = 16; // of the width in the file: signature, chunk length and type
constexpr std::size_t HEIGHT_AT = 20;

void putBigEndian(Bytes& file, std::size_t at, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i) {
        file[at + i] = static_cast<std::uint8_t>(value >> (24U - 8U * i));
    }
}

/// The file with another size in its header.
Bytes withSize(Bytes file, std::uint32_t width, std::uint32_t height) {
    putBigEndian(file, WIDTH_AT, width);
    putBigEndian(file, HEIGHT_AT, height);
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
        EXPECT_FALSE(isOurPng(makePng({.width = 9, .height = 9}, pattern)));
    }
}

TEST(HeightmapPng, PixelValuesAreHeightsInEveryForm) {
    for (const int bits : {8, 16}) {
        for (const int interlace : {PNG_INTERLACE_NONE, PNG_INTERLACE_ADAM7}) {
            const int mask = bits == 8 ? 0xFF : 0xFFFF;
            const auto value = [&](int x, int y) { return pattern(x, y) & mask; };
            const Bytes file =
                makePng({.width = 13, .height = 13, .bits = bits, .interlace = interlace}, value);
            const HeightmapReading reading = decodeHeightmap(file);
            ASSERT_EQ(reading.error, "") << bits << " bits, interlace " << interlace;
            for (int z = 0; z < 13; ++z) {
                for (int x = 0; x < 13; ++x) {
                    ASSERT_EQ(reading.map.heights[static_cast<std::size_t>(z * 13 + x)], value(x, z))
                        << bits << " bits, interlace " << interlace << " at " << x << ", " << z;
                }
            }
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
            decodeHeightmap(makePng({.width = c.width, .height = c.height}, pattern));
        ASSERT_EQ(reading.error, "");
        EXPECT_TRUE(reading.isCropped());
        EXPECT_EQ(reading.pictureWidth, c.width);
        EXPECT_EQ(reading.pictureHeight, c.height);
        ASSERT_EQ(reading.map.edge, c.edge);
        EXPECT_EQ(reading.map.heights.front(), pattern(c.left, c.top));
        EXPECT_EQ(reading.map.heights.back(), pattern(c.left + c.edge - 1, c.top + c.edge - 1));
    }
}

TEST(HeightmapPng, EveryPrefixIsRefused) {
    const Bytes file = makePng({.width = 20, .height = 17}, pattern);
    ASSERT_EQ(decodeHeightmap(file).error, "");
    for (std::size_t length = 0; length < file.size(); ++length) {
        const HeightmapReading reading = decodeHeightmap(std::span(file).first(length));
        ASSERT_THAT(reading.error, AnyOf("it is not a PNG file", "the file ends early",
                                         StartsWith("the file is too short for")))
            << "cut to " << length << " of " << file.size() << " bytes";
        ASSERT_TRUE(reading.map.heights.empty());
    }
}

TEST(HeightmapPng, OneDamagedByteNeverPassesForTheSameMap) {
    const Bytes file = makePng({.width = 9, .height = 9}, pattern);
    const HeightmapReading good = decodeHeightmap(file);
    for (std::size_t at = 0; at < file.size(); ++at) {
        Bytes damaged = file;
        damaged[at] ^= 0x10U;
        const HeightmapReading reading = decodeHeightmap(damaged);
        EXPECT_NE(reading.error, "") << "byte " << at;
    }
}

TEST(HeightmapPng, RefusalsSayWhy) {
    const Bytes small = makePng({.width = 4, .height = 4}, pattern);
    struct Case {
        Bytes file;
        std::string error;
    };
    const std::vector<Case> cases{
        {{'B', 'M', 1, 2, 3, 4}, "it is not a PNG file"},
        {makePng({.width = 4, .height = 4, .colourType = PNG_COLOR_TYPE_RGB}, pattern),
         "the picture is not plain grey; a heightmap is grey with 8 or 16 bits a pixel"},
        {makePng({.width = 8, .height = 8, .bits = 4}, [](int, int) { return 0; }),
         "the picture has 4 bits a pixel; a heightmap has 8 or 16"},
        {makePng({.width = 1, .height = 9}, pattern),
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
