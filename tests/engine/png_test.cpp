#include "engine/memory/image/image_decoder.h"
#include "engine/png_bytes.h"

#include <gtest/gtest.h>

#include <png.h>

namespace {

struct PngCase {
    const char* what;
    int colourType;
    int depth;
    std::vector<std::uint8_t> samples; // two rows of three pixels
    std::vector<qxCColour> pixels;
};

qxCColour grey(int level, int alpha = 255) {
    return {level, level, level, alpha};
}

const std::vector<PngCase>& pngCases() {
    static const std::vector<PngCase> CASES = {
        {"RGB",
         PNG_COLOR_TYPE_RGB,
         8,
         {1, 2, 3, 4, 5, 6, 7, 8, 9, 250, 251, 252, 0, 0, 0, 255, 255, 255},
         {{1, 2, 3, 255},
          {4, 5, 6, 255},
          {7, 8, 9, 255},
          {250, 251, 252, 255},
          {0, 0, 0, 255},
          {255, 255, 255, 255}}},
        {"RGB and alpha",
         PNG_COLOR_TYPE_RGB_ALPHA,
         8,
         {1, 2, 3, 0, 4, 5, 6, 1, 7, 8, 9, 128, 10, 11, 12, 254, 0, 0, 0, 255, 9, 9, 9, 9},
         {{1, 2, 3, 0}, {4, 5, 6, 1}, {7, 8, 9, 128}, {10, 11, 12, 254}, {0, 0, 0, 255}, {9, 9, 9, 9}}},
        {"RGB of 16 bits",
         PNG_COLOR_TYPE_RGB,
         16,
         {1,   1,   2,   2,   3,   3,   4, 4, 5, 5, 6, 6, 7,   7,   8,   8,   9,   9,
          128, 128, 129, 129, 130, 130, 0, 0, 0, 0, 0, 0, 255, 255, 255, 255, 255, 255},
         {{1, 2, 3, 255},
          {4, 5, 6, 255},
          {7, 8, 9, 255},
          {128, 129, 130, 255},
          {0, 0, 0, 255},
          {255, 255, 255, 255}}},
        {"grey",
         PNG_COLOR_TYPE_GRAY,
         8,
         {0, 1, 127, 128, 254, 255},
         {grey(0), grey(1), grey(127), grey(128), grey(254), grey(255)}},
        {"grey of 1 bit",
         PNG_COLOR_TYPE_GRAY,
         1,
         {0xA0, 0x40},
         {grey(255), grey(0), grey(255), grey(0), grey(255), grey(0)}},
        {"grey and alpha",
         PNG_COLOR_TYPE_GRAY_ALPHA,
         8,
         {0, 255, 50, 0, 100, 128, 200, 1, 255, 255, 3, 4},
         {grey(0), grey(50, 0), grey(100, 128), grey(200, 1), grey(255), grey(3, 4)}},
        {"palette of 2 bits",
         PNG_COLOR_TYPE_PALETTE,
         2,
         {0x18, 0xE4},
         {{0, 0, 0, 255},
          {255, 0, 0, 255},
          {0, 255, 0, 128},
          {0, 0, 255, 255},
          {0, 255, 0, 128},
          {255, 0, 0, 255}}},
    };
    return CASES;
}

TEST(Png, EveryKindGivesThePicture) {
    for (const PngCase& c : pngCases()) {
        for (const bool interlaced : {false, true}) {
            SCOPED_TRACE(testing::Message() << c.what << (interlaced ? ", interlaced" : ""));
            const auto image = decodeImage(makePng(3, 2, c.colourType, c.depth, interlaced, c.samples));
            ASSERT_TRUE(image);
            EXPECT_EQ(image->width, 3);
            EXPECT_EQ(image->height, 2);
            EXPECT_EQ(image->pixels, c.pixels);
        }
    }
}

TEST(Png, AFileThatEndsEarlyGivesNothingOrAll) {
    for (const PngCase& c : pngCases()) {
        SCOPED_TRACE(c.what);
        const std::vector<std::uint8_t> file = makePng(3, 2, c.colourType, c.depth, false, c.samples);
        for (std::size_t size = 0; size < file.size(); ++size) {
            const auto image = decodeImage(std::span(file).first(size));
            if (image) {
                EXPECT_GT(size, file.size() - 16) << "only the closing chunk may be missing";
                EXPECT_EQ(image->pixels, c.pixels);
            }
        }
    }
}

TEST(Png, ADamagedByteNeverGivesAnotherPicture) {
    const PngCase& c = pngCases()[1];
    const std::vector<std::uint8_t> file = makePng(3, 2, c.colourType, c.depth, false, c.samples);
    for (std::size_t i = 0; i < file.size(); ++i) {
        std::vector<std::uint8_t> damaged = file;
        damaged[i] ^= 0x5A;
        const auto image = decodeImage(damaged);
        EXPECT_TRUE(!image || image->pixels == c.pixels) << "byte " << i;
    }
}

TEST(Png, SizesAreHeldToTheLargestEdge) {
    const auto blank = [](int width, int height) {
        const std::size_t size = (static_cast<std::size_t>(width) + 7) / 8 * static_cast<std::size_t>(height);
        return makePng(width, height, PNG_COLOR_TYPE_GRAY, 1, false, std::vector<std::uint8_t>(size));
    };
    EXPECT_TRUE(decodeImage(blank(4096, 2)));
    EXPECT_TRUE(decodeImage(blank(2, 4096)));
    EXPECT_FALSE(decodeImage(blank(4097, 2)));
    EXPECT_FALSE(decodeImage(blank(2, 4097)));
}

} // namespace
