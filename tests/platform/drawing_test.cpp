#include "support/recording_dialog.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPixmap>

#include <array>
#include <functional>

namespace {

constexpr int DRAWN_ID = 11;
constexpr COLORREF RED = RGB(255, 0, 0);
constexpr COLORREF GREEN = RGB(0, 255, 0);
constexpr COLORREF BLUE = RGB(0, 0, 255);

/// Paints what the test says.
class CPictureButton : public CButton {
public:
    std::function<void(CDC&, const RECT&)> draw;
    void DrawItem(LPDRAWITEMSTRUCT item) override {
        if (draw) {
            draw(*CDC::FromHandle(item->hDC), item->rcItem);
        }
    }
};

class Drawing : public testing::Test {
protected:
    void SetUp() override {
        m_dialog.exchange = [this](CDataExchange* pDX) { DDX_Control(pDX, DRAWN_ID, m_picture); };
        ASSERT_TRUE(m_dialog.CreateIndirect(
            dialogLayout({dialogItem(DRAWN_ID, "Button", BS_OWNERDRAW, {0, 0, 40, 20})})));
    }
    QImage shown() { return m_dialog.at(DRAWN_ID).grab().toImage(); }

    CRecordingDialog m_dialog;
    CPictureButton m_picture;
};

TEST_F(Drawing, ARectangleHasItsPenAroundItsBrush) {
    m_picture.draw = [](CDC& dc, const RECT& area) {
        CBrush brush(GREEN);
        CBrush* const formerBrush = dc.SelectObject(&brush);
        dc.Rectangle(&area);
        dc.SelectObject(formerBrush);
        dc.FillSolidRect(2, 2, 3, 1, BLUE);
        dc.SetPixelV(2, 4, RED);
    };
    const QImage image = shown();
    const int right = image.width() - 1;
    const int bottom = image.height() - 1;
    for (const QPoint corner : {QPoint(0, 0), QPoint(right, 0), QPoint(0, bottom), QPoint(right, bottom)}) {
        EXPECT_EQ(image.pixelColor(corner), QColor(Qt::black)) << corner.x() << ", " << corner.y();
    }
    EXPECT_EQ(image.pixelColor(1, 1), QColor(0, 255, 0));
    EXPECT_EQ(image.pixelColor(right - 1, bottom - 1), QColor(0, 255, 0));
    EXPECT_EQ(image.pixelColor(4, 2), QColor(0, 0, 255));
    EXPECT_EQ(image.pixelColor(5, 2), QColor(0, 255, 0));
    EXPECT_EQ(image.pixelColor(2, 4), QColor(255, 0, 0));
}

TEST_F(Drawing, APictureInMemoryIsShownPixelByPixel) {
    const std::array<std::uint32_t, 6> pixels = {0x112233, 0x445566, 0x778899, 0xAA0000, 0x00BB00, 0x0000CC};
    BITMAPINFO info;
    info.bmiHeader.biWidth = 3;
    info.bmiHeader.biHeight = -2;
    m_picture.draw = [&](CDC& dc, const RECT&) {
        EXPECT_EQ(::SetDIBitsToDevice(dc.m_hDC, 1, 1, 3, 2, 0, 0, 0, 2, pixels.data(), &info, DIB_RGB_COLORS),
                  2);
        EXPECT_EQ(
            ::StretchDIBits(dc.m_hDC, 10, 0, 6, 4, 0, 0, 3, 2, pixels.data(), &info, DIB_RGB_COLORS, SRCCOPY),
            2);
    };
    const QImage image = shown();
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 6; ++x) {
            EXPECT_EQ(image.pixel(10 + x, y) & 0xFFFFFFU,
                      pixels[static_cast<std::size_t>(y / 2 * 3 + x / 2)]);
            if (x < 3 && y < 2) {
                EXPECT_EQ(image.pixel(1 + x, 1 + y) & 0xFFFFFFU, pixels[static_cast<std::size_t>(y * 3 + x)]);
            }
        }
    }
}

} // namespace
