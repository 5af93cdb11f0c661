#pragma once

#include "engine/qx_colour.h"
#include "platform/framework.h"

/// Tells the parent of a swatch that its colour was changed by the user: wParam 0, lParam the swatch's
/// control id.
inline constexpr UINT UM_COLOURCHANGED = 2025;

/// A colour field of the panels. A double-click opens the colour dialog; a press on one swatch and a release
/// over another copies the first one's colour, also between panels. Belongs to its panel and stands on an
/// owner-drawn button of the panel's template.
class CColourButton : public CButton {
public:
    CColourButton() = default;
    ~CColourButton() override;

    /// Alpha is dropped. Does not repaint.
    void setColour(qxCColour colour);
    /// Alpha is 255.
    qxCColour getColour() const;

    void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct) override;

protected:
    afx_msg void OnDoubleClicked();
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);

    DECLARE_MESSAGE_MAP()

private:
    void repaintAndNotify();

    COLORREF m_colour = 0;
};
