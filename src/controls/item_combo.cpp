#include "controls/item_combo.h"

#include "platform/framework.h"

void addItems(CComboBox& box, std::span<const ComboItem> items) {
    for (const ComboItem& item : items) {
        box.SetItemData(box.AddString(item.caption), static_cast<DWORD_PTR>(item.value));
    }
}

void selectValue(CComboBox& box, int value) {
    int found = CB_ERR;
    for (int i = 0; i < box.GetCount() && found == CB_ERR; ++i) {
        if (box.GetItemData(i) == static_cast<DWORD_PTR>(value)) {
            found = i;
        }
    }
    box.SetCurSel(found);
}

std::optional<int> chosenValue(const CComboBox& box) {
    const int index = box.GetCurSel();
    if (index == CB_ERR) {
        return std::nullopt;
    }
    return static_cast<int>(box.GetItemData(index));
}
