#include "movie/panel/sound_list_box.h"

namespace {

CString shownText(const ListedSound& sound) {
    return (sound.silentBecause.empty() ? sound.name : sound.name + " (unplayable)").c_str();
}

} // namespace

BEGIN_MESSAGE_MAP(CSoundListBox, CListBox)
ON_WM_MOUSEMOVE()
END_MESSAGE_MAP()

void CSoundListBox::add(const ListedSound& sound) {
    SetItemData(AddString(shownText(sound)), reinterpret_cast<DWORD_PTR>(&sound));
}

void CSoundListBox::insert(int index, const ListedSound& sound) {
    SetItemData(InsertString(index, shownText(sound)), reinterpret_cast<DWORD_PTR>(&sound));
}

const ListedSound* CSoundListBox::soundAt(int index) const {
    const bool exists = index >= 0 && index < GetCount();
    return exists ? reinterpret_cast<const ListedSound*>(GetItemData(index)) : nullptr;
}

std::vector<int> CSoundListBox::selection() const {
    std::vector<int> items(static_cast<std::size_t>(GetSelCount()));
    GetSelItems(static_cast<int>(items.size()), items.data());
    return items;
}

void CSoundListBox::selectOnly(int first, int count) {
    SetSel(-1, FALSE);
    for (int i = first; i < first + count; ++i) {
        SetSel(i);
    }
}

void CSoundListBox::OnMouseMove(UINT nFlags, CPoint point) {
    CListBox::OnMouseMove(nFlags, point);
    BOOL outside = TRUE;
    const auto index = static_cast<int>(ItemFromPoint(point, outside));
    const ListedSound* const under = outside != FALSE ? nullptr : soundAt(index);
    if (under == m_pTipOf) {
        return;
    }
    if (m_tip.GetSafeHwnd() == nullptr) {
        m_tip.Create(this);
        m_tip.AddTool(this, "");
    }
    m_pTipOf = under;
    m_tip.UpdateTipText(under != nullptr ? under->silentBecause.c_str() : "", this);
}
