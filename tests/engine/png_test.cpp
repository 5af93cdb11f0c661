#include "engine/memory/image/image_decoder.h"
#include "support/png_bytes.h"

#include <gtest/gtest.h>

#include <png.h>

namespace {

struct PngCase {
    const char* what;
    int colourType;
    int depth;
    std::vector<std::uint8_t> samples; ///< two rows
    std::vector<qxCColour> pixels;     ///< of three
};

qxCColour grey(int level, int alpha = 255) {
    return {level, level, level, alpha};
}

constexpr qxCColour BLACK(0, 0, 0, 255), RED(255, 0, 0, 255), LIME(0, 255, 0, 128), BLUE(0, 0, 255, 255);

const std::vector<PngCase>& pngCases() {
    static const std::vector<PngCase> CASES = {
        {"RGB and alpha",
         PNG_COLOR_TYPE_RGB_ALPHA,
         8,
         {1, 2, 3, 0, 4, 5, 6, 1, 7, 8, 9, 128, 10, 11, 12, 254, 0, 0, 0, 255, 9, 9, 9, 9},
         {{1, 2, 3, 0}, {4, 5, 6, 1}, {7, 8, 9, 128}, {10, 11, 12, 254}, BLACK, {9, 9, 9, 9}}},
        {"grey of 16 bits",
         PNG_COLOR_TYPE_GRAY,
         16,
         {0, 0, 1, 1, 128, 128, 254, 254, 255, 255, 7, 7},
         {grey(0), grey(1), grey(128), grey(254), grey(255), grey(7)}},
        {"grey of 1 bit",
         PNG_COLOR_TYPE_GRAY,
         1,
         {0xA0, 0x40},
         {grey(255), grey(0), grey(255), grey(0), grey(255), grey(0)}},
        {"palette of 2 bits", PNG_COLOR_TYPE_PALETTE, 2, {0x18, 0xE4}, {BLACK, RED, LIME, BLUE, LIME, RED}},
    };
    return CASES;
}

TEST(Png, EveryKindGivesThePictureAndNoDamageAnotherOne) {
    for (const PngCase& c : pngCases()) {
        SCOPED_TRACE(c.what);
        const auto interlaced = decodeImage(makePng(3, 2, c.colourType, c.depth, true, c.samples));
        ASSERT_TRUE(interlaced);
        EXPECT_EQ(interlaced->pixels, c.pixels);
        const std::vector<std::uint8_t> file = makePng(3, 2, c.colourType, c.depth, false, c.samples);
        const auto whole = decodeImage(file);
        ASSERT_TRUE(whole);
        EXPECT_EQ(std::pair(whole->width, whole->height), std::pair(3, 2));
        EXPECT_EQ(whole->pixels, c.pixels);
        for (std::size_t i = 0; i < file.size(); ++i) {
            const auto early = decodeImage(std::span(file).first(i));
            EXPECT_TRUE(!early || (i > file.size() - 16 && early->pixels == c.pixels)) << i << " bytes";
            std::vector<std::uint8_t> damaged = file;
            damaged[i] ^= 0x5A;
            const auto other = decodeImage(damaged);
            EXPECT_TRUE(!other || other->pixels == c.pixels || c.colourType == PNG_COLOR_TYPE_PALETTE)
                << "byte " << i;
        }
    }
}

TEST(Png, SizesAreHeldToTheLargestEdge) {
    const auto isTaken = [](int width, int height) {
        const std::size_t size = (static_cast<std::size_t>(width) + 7) / 8 * static_cast<std::size_t>(height);
        return decodeImage(
                   makePng(width, height, PNG_COLOR_TYPE_GRAY, 1, false, std::vector<std::uint8_t>(size)))
            .has_value();
    };
    EXPECT_TRUE(isTaken(4096, 2) && isTaken(2, 4096));
    EXPECT_FALSE(isTaken(4097, 2) || isTaken(2, 4097));
}

} // namespace
