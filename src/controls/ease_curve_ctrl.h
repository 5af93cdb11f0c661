#pragma once

#include "controls/offscreen_picture.h"
#include "platform/framework.h"

/// Draws the curve of an ease value, green on black. Belongs to its panel, which creates it over a static
/// control.
class CEaseCurveCtrl : public CWnd {
public:
    /// The two names are ignored: the window is one of this module's class, with sunken edges.
    BOOL Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                CWnd* pParentWnd, UINT nID, void* pContext = nullptr) override;

    /// Held to 0..1; what is not a number counts as 0. Redraws.
    void setValue(float value);
    float getValue() const { return m_fValue; }

protected:
    afx_msg void OnPaint();

    DECLARE_MESSAGE_MAP()

private:
    void draw(std::span<std::uint32_t> pixels, CSize size) const;

    float m_fValue = 0.5F;
    COffscreenPicture m_picture;
};
