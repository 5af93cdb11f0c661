#include "controls/colour_button.h"

#include "module/visit.h"

namespace {

constexpr int OPAQUE_ALPHA = 255;

/// What is being dragged between the swatches of all panels.
struct ColourDrag {
    const CColourButton* source = nullptr; ///< where the left button was last pressed
    qxCColour colour{255, 255, 255, OPAQUE_ALPHA};
};
ColourDrag g_colourDrag;

} // namespace

BEGIN_MESSAGE_MAP(CColourButton, CButton)
ON_CONTROL_REFLECT(BN_DOUBLECLICKED, &CColourButton::OnDoubleClicked)
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
END_MESSAGE_MAP()

CColourButton::~CColourButton() {
    // A panel may be closed between press and release, and the next panel's swatch may get the same address.
    if (g_colourDrag.source == this) {
        g_colourDrag.source = nullptr;
    }
}

void CColourButton::setColour(qxCColour colour) {
    m_colour = RGB(colour.r, colour.g, colour.b);
}

qxCColour CColourButton::getColour() const {
    return {GetRValue(m_colour), GetGValue(m_colour), GetBValue(m_colour), OPAQUE_ALPHA};
}

void CColourButton::DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct) {
    const HDC dc = lpDrawItemStruct->hDC;
    const RECT& rect = lpDrawItemStruct->rcItem;
    const CBrush brush(m_colour);
    const HGDIOBJ oldPen = ::SelectObject(dc, ::GetStockObject(BLACK_PEN));
    const HGDIOBJ oldBrush = ::SelectObject(dc, brush.GetSafeHandle());
    ::Rectangle(dc, rect.left, rect.top, rect.right, rect.bottom);
    ::SelectObject(dc, oldPen);
    ::SelectObject(dc, oldBrush);
}

void CColourButton::OnDoubleClicked() {
    CColorDialog dialog(m_colour, CC_FULLOPEN | CC_ANYCOLOR, this);
    if (runModal(dialog) != IDOK) {
        return;
    }
    m_colour = dialog.GetColor();
    repaintAndNotify();
}

// The press does not reach the button's own processing: it would capture the mouse, and the release would
// come here instead of to the swatch under the pointer.
void CColourButton::OnLButtonDown(UINT /*nFlags*/, CPoint /*point*/) {
    g_colourDrag = {this, getColour()};
}

void CColourButton::OnLButtonUp(UINT /*nFlags*/, CPoint /*point*/) {
    // Forgotten before the parent hears of the change: its handler may close the panel and this with it.
    const ColourDrag drag = g_colourDrag;
    g_colourDrag.source = nullptr;
    if (drag.source != nullptr && drag.source != this) {
        setColour(drag.colour);
        repaintAndNotify();
    }
}

void CColourButton::repaintAndNotify() {
    RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    if (CWnd* const parent = GetParent()) {
        parent->SendMessage(UM_COLOURCHANGED, 0, GetDlgCtrlID());
    }
}
