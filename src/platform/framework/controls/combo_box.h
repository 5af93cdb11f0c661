#pragma once

#include "platform/framework/wnd.h"

/// A drop-down list, with or without a text to type in. Positions count from 0; CB_ERR tells of none.
class CComboBox : public CWnd {
public:
    int GetCount() const { return static_cast<int>(SendMessage(CB_GETCOUNT)); }
    int GetCurSel() const { return static_cast<int>(SendMessage(CB_GETCURSEL)); }
    /// -1 clears the selection. Sends no notification.
    int SetCurSel(int index) { return static_cast<int>(SendMessage(CB_SETCURSEL, wide(index))); }
    /// The position the text landed on: the end, or its place in a sorted list.
    int AddString(LPCTSTR text) {
        return static_cast<int>(SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text)));
    }
    void ResetContent() { SendMessage(CB_RESETCONTENT); }
    DWORD_PTR GetItemData(int index) const {
        return static_cast<DWORD_PTR>(SendMessage(CB_GETITEMDATA, wide(index)));
    }
    int SetItemData(int index, DWORD_PTR data) {
        return static_cast<int>(SendMessage(CB_SETITEMDATA, wide(index), static_cast<LPARAM>(data)));
    }

private:
    static WPARAM wide(int index) { return static_cast<WPARAM>(index); }
};
