#include "platform/framework/controls/tool_tip_ctrl.h"

#include "platform/windows/back_end.h"

BOOL CToolTipCtrl::Create(CWnd* pParentWnd, DWORD) {
    return pParentWnd != nullptr ? TRUE : FALSE;
}

BOOL CToolTipCtrl::AddTool(CWnd* pWnd, LPCTSTR lpszText) {
    return ::SetToolTip(pWnd->m_hWnd, lpszText);
}

void CToolTipCtrl::UpdateTipText(LPCTSTR lpszText, CWnd* pWnd) {
    ::SetToolTip(pWnd->m_hWnd, lpszText);
}
