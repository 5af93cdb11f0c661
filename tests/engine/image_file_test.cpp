#include "engine/memory/engine_directories.h"
#include "engine/qx_image_file.h"
#include "engine/temp_directory.h"
#include "engine/tga_bytes.h"

#include <gtest/gtest.h>

namespace {

constexpr qxCColour RED(255, 0, 0, 255);

class ImageFile : public testing::Test {
protected:
    void SetUp() override { CEngineDirectories::setDirectories({m_directory.path()}); }
    void TearDown() override { CEngineDirectories::setDirectories({}); }

    CTempDirectory m_directory;
    qxCImageFile m_image;
};

TEST_F(ImageFile, LoadsByBareNameAndHoldsItsPixels) {
    const TestPicture picture(false, true);
    const Bytes file = makeTga({.what = "", .kind = 2, .pixelBits = 32, .alphaBits = 8}, picture);
    m_directory.write("Rock.TGA", std::string(file.begin(), file.end()));
    ASSERT_TRUE(m_image.load("rock.tga", false));
    ASSERT_EQ(m_image.width, TestPicture::WIDTH);
    ASSERT_EQ(m_image.height, TestPicture::HEIGHT);
    for (int y = 0; y < m_image.height; ++y) {
        for (int x = 0; x < m_image.width; ++x) {
            ASSERT_EQ(m_image.getPixel(x, y),
                      picture.pixels[static_cast<std::size_t>(y * m_image.width + x)]);
        }
    }
    EXPECT_EQ(m_image.getPixel(TestPicture::WIDTH, 0), qxCColour());
    EXPECT_EQ(m_image.getPixel(0, -1), qxCColour());
}

TEST_F(ImageFile, AFailedLoadLeavesAnEmptyImageThatStillWorks) {
    m_directory.write("text.tga", "this is no picture at all, only a line of text");
    m_directory.write("empty.tga", "");
    for (const char* name :
         {"text.tga", "empty.tga", "missing.tga", "../text.tga", static_cast<const char*>(nullptr)}) {
        m_image.setSize(4, 4, qxImageFileFormatColourAlpha);
        EXPECT_FALSE(m_image.load(name, false));
        EXPECT_EQ(m_image.width, 0);
        EXPECT_EQ(m_image.height, 0);
        m_image.setPixel(0, 0, RED);
        EXPECT_EQ(m_image.getPixel(0, 0), qxCColour());
    }
}

TEST_F(ImageFile, SizingStartsTransparentAndRefusesImpossibleSizes) {
    m_image.setSize(3, 2, qxImageFileFormatColourAlpha);
    m_image.setPixel(2, 1, RED);
    m_image.setPixel(3, 1, RED);
    m_image.setPixel(2, 2, RED);
    m_image.setPixel(-1, 1, RED);
    EXPECT_EQ(m_image.getPixel(2, 1), RED);
    EXPECT_EQ(m_image.getPixel(0, 1), qxCColour());
    m_image.setSize(3, 2, qxImageFileFormatColourAlpha);
    EXPECT_EQ(m_image.getPixel(2, 1), qxCColour());
    for (const auto& [width, height] :
         {std::pair(0, 5), {5, 0}, {-1, 5}, {4097, 1}, {1, 4097}, {1 << 30, 1 << 30}}) {
        m_image.setSize(width, height, qxImageFileFormatColourAlpha);
        EXPECT_EQ(m_image.width, 0) << width << " x " << height;
        EXPECT_TRUE(m_image.getPixels().empty());
    }
}

TEST_F(ImageFile, ASizeWrittenFromOutsideReachesNoForeignMemory) {
    m_image.setSize(2, 2, qxImageFileFormatColourAlpha);
    m_image.width = 1000;
    m_image.height = 1000;
    m_image.setPixel(999, 999, RED);
    EXPECT_EQ(m_image.getPixel(999, 999), qxCColour());
}

} // namespace
