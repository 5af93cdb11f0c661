#include "controls/image_preview.h"
#include "controls/preview_picture.h"
#include "controls/surface_fixture.h"
#include "engine/qx_image_file.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <vector>

namespace {

constexpr std::uint32_t UNTOUCHED = 0x12345678;

qxCImageFile makeNoise(int width, int height) {
    qxCImageFile image;
    image.setSize(width, height, qxImageFileFormatColourAlpha);
    std::mt19937 noise(7);
    const auto channel = [&] { return static_cast<int>(noise() & 0xFFU); };
    for (qxCColour& pixel : image.getPixels()) {
        pixel = qxCColour(channel(), channel(), channel(), channel());
    }
    return image;
}

/// One pixel of the preview, as its rule is told.
std::uint32_t pixelByRule(const qxCImageFile& image, int width, int height, int tilesX, int tilesY, int x,
                          int y) {
    const auto sx = std::int64_t{tilesX} * x * image.width / width % image.width;
    const auto sy = std::int64_t{y} * image.height * tilesY / height % image.height;
    const qxCColour c = image.getPixel(static_cast<int>(std::abs(sx)), static_cast<int>(std::abs(sy)));
    const int k = (x / 16 + y / 16) % 2 == 1 ? 255 : 0;
    const auto blend = [&](int channel) {
        return static_cast<std::uint32_t>((channel * c.a + (255 - c.a) * k) / 255);
    };
    return 0xFF000000U | blend(c.r) << 16U | blend(c.g) << 8U | blend(c.b);
}

void expectPictureByRule(const qxCImageFile& image, int width, int height, int tilesX, int tilesY) {
    SCOPED_TRACE(testing::Message() << image.width << "x" << image.height << " in " << width << "x" << height
                                    << ", repeated " << tilesX << "x" << tilesY);
    std::vector<std::uint32_t> picture(static_cast<std::size_t>(width) * static_cast<std::size_t>(height),
                                       UNTOUCHED);
    ASSERT_TRUE(composePreview(picture, width, height, image, tilesX, tilesY));
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const std::uint32_t pixel = picture[static_cast<std::size_t>(y * width + x)];
            ASSERT_EQ(pixel, pixelByRule(image, width, height, tilesX, tilesY, x, y)) << x << ", " << y;
        }
    }
}

TEST(PreviewPicture, EveryPixelFollowsTheRule) {
    struct {
        int imageWidth, imageHeight, width, height, tilesX, tilesY;
    } const cases[] = {
        {256, 256, 146, 146, 1, 1},
        {64, 64, 128, 128, 2, 2},
        {13, 7, 146, 90, 3, 5},
        {1, 1, 17, 33, 1, 1},
        {50, 40, 31, 47, 0, 0},
        {13, 7, 40, 30, -3, -1},
        {4096, 2, 146, 146, 2147483647, 1},
        {3, 4096, 50, 146, 1, 2147483647},
    };
    for (const auto& c : cases) {
        expectPictureByRule(makeNoise(c.imageWidth, c.imageHeight), c.width, c.height, c.tilesX, c.tilesY);
    }
}

TEST(ImagePreview, PaintsThatPictureOrNothing) {
    const qxCImageFile image = makeNoise(40, 30);
    CImagePreview preview;
    CSurfaceDialog dialog({&preview}, 50, 50);
    preview.setImage(&image, 3, 2);
    const QImage picture = pictureOf(dialog.button(0));
    ASSERT_GT(picture.width(), 80);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            ASSERT_EQ(picture.pixel(x, y), pixelByRule(image, picture.width(), picture.height(), 3, 2, x, y));
        }
    }
    preview.setImage(nullptr, 1, 1);
    QImage white(picture.size(), QImage::Format_RGB32);
    white.fill(Qt::white);
    dialog.button(0)->render(&white);
    EXPECT_EQ(white.pixelColor(9, 9), QColor(Qt::black));
}

TEST(PreviewPicture, NoPixelsNoPicture) {
    qxCImageFile notLoaded;
    qxCImageFile sizedByHand = makeNoise(4, 4);
    sizedByHand.width = 400;
    qxCImageFile narrow = sizedByHand;
    narrow.width = 0;
    for (const qxCImageFile* image : {&notLoaded, &sizedByHand, &narrow}) {
        std::vector<std::uint32_t> picture(16, UNTOUCHED);
        EXPECT_FALSE(composePreview(picture, 4, 4, *image, 1, 1));
        EXPECT_EQ(picture, std::vector<std::uint32_t>(16, UNTOUCHED));
    }
}

} // namespace
