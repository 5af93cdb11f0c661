#pragma once

#include "platform/framework/wnd.h"

/// A row of tabs over a page. Which controls stand on the page is the dialog's business.
class CTabCtrl : public CWnd {
public:
    /// The new tab's position, -1 on failure.
    LONG InsertItem(int nItem, LPCTSTR lpszItem) {
        return static_cast<LONG>(
            SendMessage(TCM_INSERTITEM, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(lpszItem)));
    }
    int GetCurSel() const { return static_cast<int>(SendMessage(TCM_GETCURSEL)); }
    /// The former selection. Sends no notification.
    int SetCurSel(int nItem) {
        return static_cast<int>(SendMessage(TCM_SETCURSEL, static_cast<WPARAM>(nItem)));
    }
};
