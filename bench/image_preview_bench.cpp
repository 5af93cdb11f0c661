// An image preview painting itself on a bitmap of the size of the map editor's: composing and copying;
// against QPainter's fast stretched draw of the same image over a checkerboard brush.
#include "bench/ratio.h"
#include "controls/image_preview.h"
#include "engine/qx_image_file.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <benchmark/benchmark.h>

#include <random>

namespace {

constexpr int SOURCE_EDGE = 256;
constexpr int EDGE = 146;
constexpr int SQUARE = 16;
constexpr int ROUNDS = 2001;
constexpr double GOAL = 0.55;

/// Noise of every alpha.
qxCImageFile makeImage() {
    qxCImageFile image;
    image.setSize(SOURCE_EDGE, SOURCE_EDGE, qxImageFileFormatColourAlpha);
    std::mt19937 noise(1);
    const auto channel = [&] { return static_cast<int>(noise() & 0xFFU); };
    for (qxCColour& pixel : image.getPixels()) {
        pixel = qxCColour(channel(), channel(), channel(), channel());
    }
    return image;
}

/// QPainter gets the picture in the format that it composes fastest; the conversion is not counted.
class CPainterDraw {
public:
    explicit CPainterDraw(const qxCImageFile& image) {
        QImage straight(SOURCE_EDGE, SOURCE_EDGE, QImage::Format_ARGB32);
        for (int y = 0; y < SOURCE_EDGE; ++y) {
            for (int x = 0; x < SOURCE_EDGE; ++x) {
                const qxCColour pixel = image.getPixel(x, y);
                straight.setPixel(x, y, qRgba(pixel.r, pixel.g, pixel.b, pixel.a));
            }
        }
        m_image = straight.convertToFormat(QImage::Format_ARGB32_Premultiplied);
        QImage squares(2 * SQUARE, 2 * SQUARE, QImage::Format_RGB32);
        squares.fill(Qt::black);
        QPainter painter(&squares);
        painter.fillRect(SQUARE, 0, SQUARE, SQUARE, Qt::white);
        painter.fillRect(0, SQUARE, SQUARE, SQUARE, Qt::white);
        painter.end();
        m_checkers = QBrush(squares);
    }

    void run() {
        QPainter painter(&m_picture);
        painter.fillRect(m_picture.rect(), m_checkers);
        painter.drawImage(m_picture.rect(), m_image);
        painter.end();
        benchmark::DoNotOptimize(m_picture.bits());
    }

private:
    QImage m_image;
    QBrush m_checkers;
    QImage m_picture{EDGE, EDGE, QImage::Format_RGB32};
};

/// The preview and the context that it paints on.
class CPreviewDraw {
public:
    explicit CPreviewDraw(const qxCImageFile& image) {
        m_context.CreateCompatibleDC(nullptr);
        m_bitmap.CreateCompatibleBitmap(nullptr, EDGE, EDGE);
        m_pFormer = m_context.SelectObject(&m_bitmap);
        m_preview.setImage(&image, 1, 1);
        m_item.hDC = m_context.m_hDC;
        m_item.rcItem = {0, 0, EDGE, EDGE};
    }
    ~CPreviewDraw() { m_context.SelectObject(m_pFormer); }
    CPreviewDraw(const CPreviewDraw&) = delete;
    CPreviewDraw& operator=(const CPreviewDraw&) = delete;

    void run() {
        m_preview.DrawItem(&m_item);
        benchmark::ClobberMemory();
    }

    COLORREF pixel(int x, int y) const { return m_context.GetPixel(x, y); }

private:
    CImagePreview m_preview;
    CDC m_context;
    CBitmap m_bitmap;
    CBitmap* m_pFormer = nullptr;
    DRAWITEMSTRUCT m_item;
};

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const qxCImageFile image = makeImage();
    CPainterDraw painter(image);
    CPreviewDraw preview(image);
    const std::vector<double> seconds =
        bench::medianSeconds({[&] { preview.run(); }, [&] { painter.run(); }}, ROUNDS);
    if (preview.pixel(EDGE - 1, EDGE - 1) == RGB(0, 0, 0)) {
        std::puts("image preview: nothing was painted");
        return 1;
    }
    bench::printRatio("image preview / QPainter", seconds[0], seconds[1], GOAL);
    return 0;
}
