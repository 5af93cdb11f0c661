#include "platform/framework/drawing/gdi_object.h"

BOOL CGdiObject::DeleteObject() {
    m_pOwned.reset();
    m_hObject = nullptr;
    return TRUE;
}

BOOL CGdiObject::take(HGDIOBJ__ object) {
    m_pOwned = std::make_unique<HGDIOBJ__>(std::move(object));
    m_hObject = m_pOwned.get();
    return TRUE;
}

void CGdiObject::standFor(HGDIOBJ object) {
    m_pOwned.reset();
    m_hObject = object;
}

BOOL CPen::CreatePen(int, int width, COLORREF colour) {
    HGDIOBJ__ pen;
    pen.kind = HGDIOBJ__::Kind::PEN;
    pen.colour = colour;
    pen.width = width;
    return take(std::move(pen));
}

BOOL CBrush::CreateSolidBrush(COLORREF colour) {
    HGDIOBJ__ brush;
    brush.kind = HGDIOBJ__::Kind::BRUSH;
    brush.colour = colour;
    return take(std::move(brush));
}

BOOL CBitmap::CreateCompatibleBitmap(CDC*, int width, int height) {
    if (width <= 0 || height <= 0) {
        return FALSE;
    }
    HGDIOBJ__ bitmap;
    bitmap.kind = HGDIOBJ__::Kind::BITMAP;
    bitmap.width = width;
    bitmap.height = height;
    bitmap.pixels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0xFF000000U);
    return take(std::move(bitmap));
}

namespace {

HGDIOBJ__ stockObject(HGDIOBJ__::Kind kind, COLORREF colour, bool hollow) {
    HGDIOBJ__ object;
    object.kind = kind;
    object.colour = colour;
    object.hollow = hollow;
    return object;
}

} // namespace

HGDIOBJ GetStockObject(int object) {
    using Kind = HGDIOBJ__::Kind;
    static HGDIOBJ__ whiteBrush = stockObject(Kind::BRUSH, RGB(255, 255, 255), false);
    static HGDIOBJ__ blackBrush = stockObject(Kind::BRUSH, RGB(0, 0, 0), false);
    static HGDIOBJ__ noBrush = stockObject(Kind::BRUSH, 0, true);
    static HGDIOBJ__ whitePen = stockObject(Kind::PEN, RGB(255, 255, 255), false);
    static HGDIOBJ__ blackPen = stockObject(Kind::PEN, RGB(0, 0, 0), false);
    static HGDIOBJ__ noPen = stockObject(Kind::PEN, 0, true);
    switch (object) {
    case WHITE_BRUSH:
        return &whiteBrush;
    case BLACK_BRUSH:
        return &blackBrush;
    case NULL_BRUSH:
        return &noBrush;
    case WHITE_PEN:
        return &whitePen;
    case BLACK_PEN:
        return &blackPen;
    case NULL_PEN:
        return &noPen;
    default:
        return nullptr;
    }
}
