#pragma once

#include "platform/framework/wnd.h"

/// Short texts that show while the pointer rests on a window.
class CToolTipCtrl : public CWnd {
public:
    using CWnd::Create;
    BOOL Create(CWnd* pParentWnd, DWORD dwStyle = 0);
    /// FALSE when there is no such window.
    BOOL AddTool(CWnd* pWnd, LPCTSTR lpszText);
    void UpdateTipText(LPCTSTR lpszText, CWnd* pWnd);
};
