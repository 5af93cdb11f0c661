#include "engine/memory/image/image_decoder.h"
#include "engine/tga_bytes.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

constexpr TgaLayout LAYOUTS[] = {
    {.what = "24 bits", .kind = 2, .pixelBits = 24},
    {.what = "24 bits with a note and a map nobody uses",
     .kind = 2,
     .pixelBits = 24,
     .mapBits = 24,
     .idLength = 200,
     .hasUnusedMap = true},
    {.what = "32 bits", .kind = 2, .pixelBits = 32, .alphaBits = 8},
    {.what = "32 bits that declare no alpha but have some", .kind = 2, .pixelBits = 32},
    {.what = "16 bits with alpha", .kind = 2, .pixelBits = 16, .alphaBits = 1},
    {.what = "16 bits without alpha", .kind = 2, .pixelBits = 16},
    {.what = "15 bits", .kind = 2, .pixelBits = 15, .alphaBits = 1},
    {.what = "grey", .kind = 3, .pixelBits = 8},
    {.what = "grey and alpha", .kind = 3, .pixelBits = 16, .alphaBits = 8},
    {.what = "map of 24 bits", .kind = 1, .pixelBits = 8, .mapBits = 24},
    {.what = "map of 32 bits, wide indices", .kind = 1, .pixelBits = 16, .mapBits = 32, .alphaBits = 8},
    {.what = "map of 16 bits", .kind = 1, .pixelBits = 8, .mapBits = 16, .alphaBits = 1},
    {.what = "map of 15 bits with a note", .kind = 1, .pixelBits = 8, .mapBits = 15, .idLength = 3},
    {.what = "map that starts at 40", .kind = 1, .pixelBits = 8, .mapBits = 24, .mapFirst = 40},
};

bool keepsAlpha(const TgaLayout& layout) {
    const int bits = layout.kind == 1 ? layout.mapBits : layout.pixelBits;
    return bits == 32 || (bits == 16 && layout.alphaBits > 0);
}

TestPicture pictureFor(const TgaLayout& layout) {
    return TestPicture(layout.kind == 3, keepsAlpha(layout));
}

void forEachVariant(const std::function<void(const TgaLayout&)>& check) {
    for (TgaLayout layout : LAYOUTS) {
        for (int variant = 0; variant < 8; ++variant) {
            layout.fromRight = (variant & 1) != 0;
            layout.fromTop = (variant & 2) != 0;
            layout.isPacked = (variant & 4) != 0;
            SCOPED_TRACE(testing::Message()
                         << layout.what << (layout.isPacked ? ", packed" : "") << ", from the "
                         << (layout.fromTop ? "top " : "bottom ") << (layout.fromRight ? "right" : "left"));
            check(layout);
        }
    }
}

TEST(Tga, EveryKindFromEveryCornerGivesThePicture) {
    forEachVariant([](const TgaLayout& layout) {
        const TestPicture picture = pictureFor(layout);
        const auto image = decodeImage(makeTga(layout, picture));
        ASSERT_TRUE(image);
        EXPECT_EQ(image->width, TestPicture::WIDTH);
        EXPECT_EQ(image->height, TestPicture::HEIGHT);
        EXPECT_EQ(image->pixels, picture.pixels);
    });
}

TEST(Tga, NothingComesOfAFileThatEndsEarlyAndExtraBytesDoNoHarm) {
    forEachVariant([](const TgaLayout& layout) {
        Bytes file = makeTga(layout, pictureFor(layout));
        for (std::size_t size = 0; size < file.size(); ++size) {
            ASSERT_FALSE(decodeImage(std::span(file).first(size)))
                << size << " of " << file.size() << " bytes";
        }
        file.resize(file.size() + 26);
        EXPECT_TRUE(decodeImage(file));
    });
}

TEST(Tga, AlphaThatNobodyMeantIsOpaque) {
    const TgaLayout undeclared = {.what = "", .kind = 2, .pixelBits = 32};
    TestPicture picture(false, true);
    for (qxCColour& pixel : picture.pixels) {
        pixel.a = 0;
    }
    EXPECT_EQ(decodeImage(makeTga(undeclared, picture))->pixels[0].a, 255);
    TgaLayout declared = undeclared;
    declared.alphaBits = 8;
    EXPECT_EQ(decodeImage(makeTga(declared, picture))->pixels[0].a, 0);
}

TEST(Tga, AnIndexOutsideTheMapIsTransparentBlack) {
    Bytes file = tgaHeader(1, 3, 1, 8);
    file[1] = 1;
    file[3] = 10;
    file[5] = 2;
    file[7] = 24;
    for (const int byte : {1, 2, 3, 4, 5, 6, 9, 11, 12}) {
        file.push_back(static_cast<std::uint8_t>(byte));
    }
    const auto image = decodeImage(file);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->pixels, (std::vector{qxCColour(), qxCColour(6, 5, 4, 255), qxCColour()}));
}

TEST(Tga, APacketMayRunPastTheLastPixel) {
    Bytes file = tgaHeader(10, 2, 1, 24);
    for (const int byte : {0xFF, 7, 8, 9}) {
        file.push_back(static_cast<std::uint8_t>(byte));
    }
    const auto image = decodeImage(file);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->pixels, std::vector(2, qxCColour(9, 8, 7, 255)));
}

TEST(Tga, HeadersOfNoPictureAreRefused) {
    struct {
        const char* what;
        std::size_t offset;
        int value;
    } const cases[] = {{"map kind", 1, 2},        {"no image", 2, 0},       {"unknown kind", 2, 4},
                       {"Huffman packed", 2, 32}, {"no width", 12, 0},      {"no height", 14, 0},
                       {"width 4097", 13, 16},    {"height 4097", 15, 16},  {"12 bits", 16, 12},
                       {"64 bits", 16, 64},       {"interleaved", 17, 0x40}};
    Bytes good = tgaHeader(2, 1, 1, 24);
    good.resize(18 + std::size_t{3} * 4097);
    ASSERT_TRUE(decodeImage(good));
    for (const auto& c : cases) {
        Bytes bad = good;
        bad[c.offset] = static_cast<std::uint8_t>(c.value);
        EXPECT_FALSE(decodeImage(bad)) << c.what;
    }
    struct {
        const char* what;
        int mapKind, mapLength, mapBits;
    } const maps[] = {{"no map", 0, 1, 24}, {"map without entries", 1, 0, 24}, {"map of 8 bits", 1, 1, 8}};
    for (const auto& c : maps) {
        Bytes bad = tgaHeader(1, 1, 1, 8);
        bad[1] = static_cast<std::uint8_t>(c.mapKind);
        bad[5] = static_cast<std::uint8_t>(c.mapLength);
        bad[7] = static_cast<std::uint8_t>(c.mapBits);
        bad.resize(100);
        EXPECT_FALSE(decodeImage(bad)) << c.what;
    }
}

} // namespace
