#include "platform/framework/controls/button.h"

BEGIN_MESSAGE_MAP(CButton, CWnd)
END_MESSAGE_MAP()

HICON CButton::SetIcon(HICON icon) {
    return reinterpret_cast<HICON>(SendMessage(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon)));
}

void CButton::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CButton::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
    if (message != WM_DRAWITEM) {
        return CWnd::OnChildNotify(message, wParam, lParam, pResult);
    }
    DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    return TRUE;
}
