#pragma once

#include "platform/framework/wnd.h"

/// A list of texts, for one or several selected. Positions count from 0; LB_ERR tells of none.
class CListBox : public CWnd {
public:
    int GetCount() const { return static_cast<int>(SendMessage(LB_GETCOUNT)); }
    /// In a list for several selected, the item with the focus rectangle.
    int GetCurSel() const { return static_cast<int>(SendMessage(LB_GETCURSEL)); }
    /// -1 clears the selection. Sends no notification.
    int SetCurSel(int index) { return static_cast<int>(SendMessage(LB_SETCURSEL, wide(index))); }
    /// The position the text landed on: the end, or its place in a sorted list.
    int AddString(LPCTSTR text) {
        return static_cast<int>(SendMessage(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text)));
    }
    int InsertString(int index, LPCTSTR text) {
        return static_cast<int>(SendMessage(LB_INSERTSTRING, wide(index), reinterpret_cast<LPARAM>(text)));
    }
    int DeleteString(UINT index) { return static_cast<int>(SendMessage(LB_DELETESTRING, index)); }
    void ResetContent() { SendMessage(LB_RESETCONTENT); }
    /// The first item after startAfter (-1: of all) that begins with the text, letter case aside.
    int FindString(int startAfter, LPCTSTR text) const {
        return static_cast<int>(SendMessage(LB_FINDSTRING, wide(startAfter), reinterpret_cast<LPARAM>(text)));
    }
    void GetText(int index, CString& text) const;
    DWORD_PTR GetItemData(int index) const {
        return static_cast<DWORD_PTR>(SendMessage(LB_GETITEMDATA, wide(index)));
    }
    int SetItemData(int index, DWORD_PTR data) {
        return static_cast<int>(SendMessage(LB_SETITEMDATA, wide(index), static_cast<LPARAM>(data)));
    }

    /// The item under a client point, or the nearest one with bOutside set.
    UINT ItemFromPoint(CPoint pt, BOOL& bOutside) const;

    // For lists of several selected.
    /// Index -1 stands for every item.
    int SetSel(int index, BOOL select = TRUE) {
        return static_cast<int>(SendMessage(LB_SETSEL, wide(select), index));
    }
    int GetSelCount() const { return static_cast<int>(SendMessage(LB_GETSELCOUNT)); }
    /// The selected positions, ascending, at most maxItems of them; how many were written.
    int GetSelItems(int maxItems, int* indices) const {
        return static_cast<int>(
            SendMessage(LB_GETSELITEMS, wide(maxItems), reinterpret_cast<LPARAM>(indices)));
    }
    int GetCaretIndex() const { return static_cast<int>(SendMessage(LB_GETCARETINDEX)); }
    int SetCaretIndex(int index) { return static_cast<int>(SendMessage(LB_SETCARETINDEX, wide(index))); }

private:
    static WPARAM wide(int index) { return static_cast<WPARAM>(index); }
};
