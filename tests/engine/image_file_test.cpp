#include "engine/memory/engine_directories.h"
#include "engine/memory/image/image_decoder.h"
#include "engine/qx_image_file.h"
#include "support/png_bytes.h"
#include "support/temp_directory.h"
#include "support/tga_bytes.h"

#include <gtest/gtest.h>

#include <sys/resource.h>

namespace {

constexpr qxCColour RED(255, 0, 0, 255);

TEST(ImageFile, LoadsByBareNameAndIsEmptyAfterAFailure) {
    const CTempDirectory directory;
    CEngineDirectories::setDirectories({directory.path()});
    directory.write("Rock.TGA", makeTga(2, 2, 8, "\x01\x02\x03\x04", 0x20));
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

} // namespace
