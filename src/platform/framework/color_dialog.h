#pragma once

#include "platform/windows_types.h"

class CWnd;

inline constexpr DWORD CC_RGBINIT = 0x001;
inline constexpr DWORD CC_FULLOPEN = 0x002;
inline constexpr DWORD CC_ANYCOLOR = 0x100;

/// The platform's colour dialog.
class CColorDialog {
public:
    /// The flags are for dialogs that have less to offer: this one always shows everything.
    explicit CColorDialog(COLORREF clrInit = 0, DWORD dwFlags = 0, CWnd* pParentWnd = nullptr);
    /// IDOK or IDCANCEL.
    INT_PTR DoModal();
    /// The colour chosen, or the one given before.
    COLORREF GetColor() const { return m_colour; }

private:
    COLORREF m_colour;
    HWND m_parent;
};
