#include "platform/framework/controls/combo_box.h"

#include <string>

void CComboBox::GetLBText(int index, CString& text) const {
    const LRESULT length = SendMessage(CB_GETLBTEXTLEN, wide(index));
    if (length < 0) {
        text.Empty();
        return;
    }
    std::string buffer(static_cast<std::size_t>(length) + 1, '\0');
    SendMessage(CB_GETLBTEXT, wide(index), reinterpret_cast<LPARAM>(buffer.data()));
    text = buffer.c_str();
}
