#include "controls/image_preview.h"
#include "controls/preview_picture.h"
#include "controls/surface_fixture.h"
#include "engine/qx_image_file.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

/// A picture with a colour and an alpha of its own at every pixel.
qxCImageFile makeImage() {
    qxCImageFile image;
    image.setSize(40, 30, qxImageFileFormatColourAlpha);
    for (int y = 0; y < 30; ++y) {
        for (int x = 0; x < 40; ++x) {
            image.setPixel(x, y, qxCColour(x * 6, y * 8, (x + y) * 3, (x * y) % 256));
        }
    }
    return image;
}

TEST(ImagePreview, PaintsTheComposedPicture) {
    const qxCImageFile image = makeImage();
    CImagePreview preview;
    CSurfaceDialog dialog({&preview}, BS_OWNERDRAW, 50, 50);
    preview.setImage(&image, 3, 2);
    const QImage picture = pictureOf(dialog.button(0));
    ASSERT_GT(picture.width(), 80);
    std::vector<std::uint32_t> expected(static_cast<std::size_t>(picture.width() * picture.height()));
    ASSERT_TRUE(composePreview(expected, picture.width(), picture.height(), image, 3, 2));
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const auto at = static_cast<std::size_t>(y * picture.width() + x);
            ASSERT_EQ(picture.pixel(x, y), expected[at]) << x << ", " << y;
        }
    }
    preview.setImage(nullptr, 1, 1);
    QImage white(picture.size(), QImage::Format_RGB32);
    white.fill(Qt::white);
    dialog.button(0)->render(&white);
    EXPECT_EQ(white.pixelColor(9, 9), QColor(Qt::black));
}

} // namespace
