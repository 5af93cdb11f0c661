#include "controls/image_preview.h"
#include "controls/preview_picture.h"
#include "controls/surface_fixture.h"
#include "engine/qx_image_file.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPixmap>
#include <QScreen>

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
}

/// What the window shows of a control once it was painted again; a picture made anew would not tell what
/// stays.
QImage repainted(QWidget* widget) {
    widget->update();
    QApplication::processEvents();
    const QPoint place = widget->mapTo(widget->window(), QPoint());
    return widget->screen()
        ->grabWindow(widget->window()->winId(), place.x(), place.y(), widget->width(), widget->height())
        .toImage();
}

TEST(ImagePreview, AnImageWithoutPixelsLeavesWhatTheWindowShows) {
    const qxCImageFile image = makeImage();
    const qxCImageFile notLoaded;
    CImagePreview preview;
    CSurfaceDialog dialog({&preview}, BS_OWNERDRAW, 50, 50);
    preview.setImage(&image, 1, 1);
    const QImage painted = repainted(dialog.button(0));
    preview.setImage(&notLoaded, 1, 1);
    EXPECT_EQ(repainted(dialog.button(0)), painted);
    preview.setImage(nullptr, 1, 1);
    EXPECT_NE(repainted(dialog.button(0)), painted);
}

} // namespace
