#include "platform/qt/device_context.h"

#include "platform/qt/window_registry.h"
#include "platform/windows/back_end.h"

#include <algorithm>
#include <utility>

namespace {

QColor toColour(COLORREF colour) {
    return {GetRValue(colour), GetGValue(colour), GetBValue(colour)};
}

QRect toRect(const RECT& rect) {
    return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

/// The same pixels as an image, from the top. Only 32 bits a pixel are known; null for anything else.
QImage imageOf(const void* bits, const BITMAPINFOHEADER& header) {
    if (bits == nullptr || header.biBitCount != 32 || header.biWidth <= 0 || header.biHeight == 0) {
        return {};
    }
    const QImage image(static_cast<const uchar*>(bits), header.biWidth, std::abs(header.biHeight),
                       4 * header.biWidth, QImage::Format_RGB32);
    return header.biHeight < 0 ? image : image.mirrored();
}

QImage imageOf(HGDIOBJ__& bitmap) {
    return {reinterpret_cast<uchar*>(bitmap.pixels.data()), bitmap.width, bitmap.height, 4 * bitmap.width,
            QImage::Format_RGB32};
}

} // namespace

HGDIOBJ HDC__::select(HGDIOBJ object) {
    using Kind = HGDIOBJ__::Kind;
    if (object != nullptr && object->kind == Kind::PEN) {
        return std::exchange(m_pen, object);
    }
    if (object != nullptr && object->kind == Kind::BRUSH) {
        return std::exchange(m_brush, object);
    }
    const HGDIOBJ former = m_bitmap;
    drawOn(object);
    return former;
}

void HDC__::drawOn(HGDIOBJ bitmap) {
    if (m_pPainter != nullptr && m_pOwn == nullptr) {
        return; // a widget's context keeps drawing on the widget
    }
    m_pOwn.reset();
    m_pPainter = nullptr;
    m_bitmap = bitmap;
    if (bitmap != nullptr) {
        m_picture = imageOf(*bitmap);
        m_pOwn = std::make_unique<QPainter>(&m_picture);
        m_pPainter = m_pOwn.get();
    }
}

QPen HDC__::pen() const {
    if (m_pen->hollow) {
        return Qt::NoPen;
    }
    QPen pen(toColour(m_pen->colour), std::max(1, m_pen->width));
    pen.setJoinStyle(Qt::MiterJoin);
    return pen;
}

QBrush HDC__::brush() const {
    return m_brush->hollow ? QBrush(Qt::NoBrush) : QBrush(toColour(m_brush->colour));
}

HDC CreateCompatibleDC(HDC) {
    return std::make_unique<HDC__>().release();
}

HDC GetDC(HWND) {
    return std::make_unique<HDC__>().release();
}

void DeleteDC(HDC context) {
    delete context;
}

HDC BeginWindowPaint(HWND window) {
    const qtbackend::CWindow* const found = qtbackend::CWindowRegistry::instance().find(window);
    if (found == nullptr || found->widget() == nullptr ||
        !found->widget()->testAttribute(Qt::WA_WState_InPaintEvent)) {
        return std::make_unique<HDC__>().release();
    }
    auto painter = std::make_unique<QPainter>(found->widget());
    painter->setClipRect(found->clientRect());
    painter->translate(found->clientRect().topLeft());
    return std::make_unique<HDC__>(std::move(painter)).release();
}

void EndWindowPaint(HWND, HDC context) {
    delete context;
}

HGDIOBJ SelectObject(HDC context, HGDIOBJ object) {
    return context != nullptr ? context->select(object) : nullptr;
}

BOOL Rectangle(HDC context, int left, int top, int right, int bottom) {
    if (context == nullptr || context->painter() == nullptr) {
        return FALSE;
    }
    context->painter()->setPen(context->pen());
    context->painter()->setBrush(context->brush());
    context->painter()->drawRect(left, top, right - left - 1, bottom - top - 1);
    return TRUE;
}

void FillSolidArea(HDC context, LPCRECT rect, COLORREF colour) {
    if (context != nullptr && context->painter() != nullptr) {
        context->painter()->fillRect(toRect(*rect), toColour(colour));
    }
}

BOOL SetPixelV(HDC context, int x, int y, COLORREF colour) {
    if (context == nullptr || context->painter() == nullptr) {
        return FALSE;
    }
    context->painter()->fillRect(x, y, 1, 1, toColour(colour));
    return TRUE;
}

COLORREF GetPixel(HDC context, int x, int y) {
    if (context == nullptr || context->bitmap() == nullptr) {
        return 0;
    }
    const QImage picture = imageOf(*context->bitmap());
    const QRgb pixel = picture.valid(x, y) ? picture.pixel(x, y) : 0;
    return RGB(qRed(pixel), qGreen(pixel), qBlue(pixel));
}

BOOL BitBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
            DWORD operation) {
    if (target == nullptr || target->painter() == nullptr || source == nullptr ||
        source->bitmap() == nullptr || operation != SRCCOPY) {
        return FALSE;
    }
    target->painter()->drawImage(QPoint(x, y), imageOf(*source->bitmap()),
                                 QRect(sourceX, sourceY, width, height));
    return TRUE;
}

int SetDIBitsToDevice(HDC context, int x, int y, DWORD width, DWORD height, int sourceX, int sourceY, UINT,
                      UINT, const void* bits, const BITMAPINFO* info, UINT) {
    return StretchDIBits(context, x, y, static_cast<int>(width), static_cast<int>(height), sourceX, sourceY,
                         static_cast<int>(width), static_cast<int>(height), bits, info, DIB_RGB_COLORS,
                         SRCCOPY);
}

int StretchDIBits(HDC context, int x, int y, int width, int height, int sourceX, int sourceY, int sourceWidth,
                  int sourceHeight, const void* bits, const BITMAPINFO* info, UINT, DWORD) {
    const QImage image = imageOf(bits, info->bmiHeader);
    if (context == nullptr || context->painter() == nullptr || image.isNull()) {
        return 0;
    }
    context->painter()->drawImage(QRect(x, y, width, height), image,
                                  QRect(sourceX, sourceY, sourceWidth, sourceHeight));
    return sourceHeight;
}
