#include "engine/memory/engine_directories.h"
#include "engine/memory/image/image_decoder.h"
#include "engine/qx_image_file.h"
#include "support/png_bytes.h"
#include "support/temp_directory.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <sys/resource.h>

namespace {

constexpr qxCColour RED(255, 0, 0, 255);

TEST(ImageFile, LoadsByBareNameAndIsEmptyAfterAFailure) {
    const CTempDirectory directory;
    CEngineDirectories::setDirectories({directory.path()});
    std::string file(18, '\0');
    file[2] = 3;
    file[12] = file[14] = 2;
    file[16] = 8;
    file[17] = 0x20;
    directory.write("Rock.TGA", file + "\x01\x02\x03\x04");
    directory.write("text.tga", "this is no picture at all, only a line of text");
    directory.write("empty.tga", "");
    qxCImageFile image;
    for (const char* name :
         {"text.tga", "empty.tga", "missing.tga", "../Rock.TGA", static_cast<const char*>(nullptr)}) {
        ASSERT_TRUE(image.load("rock.tga", false));
        EXPECT_EQ(image.getPixel(1, 0), qxCColour(2, 2, 2, 255));
        EXPECT_EQ(image.getPixel(0, 1), qxCColour(3, 3, 3, 255));
        EXPECT_FALSE(image.load(name, false));
        EXPECT_EQ(image.width, 0);
        image.setPixel(0, 0, RED);
        EXPECT_EQ(image.getPixel(0, 0), qxCColour());
    }
    CEngineDirectories::setDirectories({});
}

TEST(ImageFile, PixelsAreHeldToTheSizeAndTheSizeToThePossible) {
    qxCImageFile image;
    image.setSize(3, 2, qxImageFileFormatColourAlpha);
    for (const auto& [x, y] : {std::pair(2, 1), {3, 1}, {2, 2}, {-1, 1}}) {
        image.setPixel(x, y, RED);
    }
    EXPECT_EQ(image.getPixel(2, 1), RED);
    EXPECT_EQ(image.getPixel(0, 1), qxCColour());
    EXPECT_EQ(image.getPixel(-1, 1), qxCColour());
    image.width = image.height = 1000; // from outside
    image.setPixel(999, 999, RED);
    EXPECT_EQ(image.getPixel(999, 999), qxCColour());
    image.setSize(3, 2, qxImageFileFormatColourAlpha);
    EXPECT_EQ(image.getPixel(2, 1), qxCColour());
    for (const auto& [width, height] :
         {std::pair(0, 5), {5, 0}, {-1, 5}, {4097, 1}, {1, 4097}, {1 << 30, 1 << 30}}) {
        image.setSize(width, height, qxImageFileFormatColourAlpha);
        EXPECT_EQ(image.width, 0) << width << " x " << height;
        EXPECT_TRUE(image.getPixels().empty());
    }
}

TEST(ImageFile, AHeaderThatPromisesTooMuchTakesNoMemory) {
    const auto peakKilobytes = [] {
        rusage usage = {};
        getrusage(RUSAGE_SELF, &usage);
        return usage.ru_maxrss;
    };
    // Headers of 4096 x 4096 pixels, 64 MB when decoded, before the bytes of a small picture.
    std::vector<std::uint8_t> png = makePng(2, 2, 6, 8, false, std::vector<std::uint8_t>(16));
    const std::vector<std::uint8_t> large =
        makePng(4096, 4096, 0, 1, false, std::vector<std::uint8_t>(std::size_t{512} * 4096));
    std::copy_n(large.begin(), 33, png.begin());
    std::vector<std::uint8_t> tga = {0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 16, 0, 16, 32, 0x20};
    tga.resize(5000, 0xFF);
    std::vector<std::uint8_t> packed = tga;
    packed[2] = 10;
    const auto before = peakKilobytes();
    for (const auto& file : {png, tga, packed}) {
        EXPECT_FALSE(decodeImage(file));
    }
    EXPECT_LT(peakKilobytes() - before, 16 * 1024);
}

} // namespace
