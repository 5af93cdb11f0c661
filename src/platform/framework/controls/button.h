#pragma once

#include "platform/framework/wnd.h"

inline constexpr UINT ODT_BUTTON = 4;
inline constexpr UINT ODA_DRAWENTIRE = 1;
inline constexpr UINT ODS_SELECTED = 0x0001;
inline constexpr UINT ODS_DISABLED = 0x0004;
inline constexpr UINT ODS_FOCUS = 0x0010;

/// What an owner-drawn button gets to paint itself with.
struct DRAWITEMSTRUCT {
    UINT CtlType = ODT_BUTTON;
    UINT CtlID = 0;
    UINT itemID = 0;
    UINT itemAction = ODA_DRAWENTIRE;
    UINT itemState = 0; ///< ODS_ bits
    HWND hwndItem = nullptr;
    HDC hDC = nullptr;
    RECT rcItem;
    DWORD_PTR itemData = 0;
};
using LPDRAWITEMSTRUCT = DRAWITEMSTRUCT*;

/// A push button, check box, radio button or owner-drawn button.
class CButton : public CWnd {
public:
    /// Shows an icon in place of the caption, nothing for null; the former icon.
    HICON SetIcon(HICON icon);

    /// Paints an owner-drawn button; must be overridden for one.
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;

    DECLARE_MESSAGE_MAP()
};
