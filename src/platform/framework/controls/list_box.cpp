#include "platform/framework/controls/list_box.h"

#include <string>

void CListBox::GetText(int index, CString& text) const {
    const LRESULT length = SendMessage(LB_GETTEXTLEN, wide(index));
    if (length < 0) {
        text.Empty();
        return;
    }
    std::string buffer(static_cast<std::size_t>(length) + 1, '\0');
    SendMessage(LB_GETTEXT, wide(index), reinterpret_cast<LPARAM>(buffer.data()));
    text = buffer.c_str();
}

UINT CListBox::ItemFromPoint(CPoint pt, BOOL& bOutside) const {
    const auto found = static_cast<DWORD_PTR>(SendMessage(LB_ITEMFROMPOINT, 0, MAKELPARAM(pt.x, pt.y)));
    bOutside = HIWORD(found) != 0 ? TRUE : FALSE;
    return LOWORD(found);
}
