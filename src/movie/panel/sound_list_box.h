#pragma once

#include "platform/framework.h"

#include <string>
#include <vector>

/// A WAV file in a list: its name, and why it would be silent, empty when it would not.
struct ListedSound {
    std::string name;
    std::string silentBecause;
};

/// A list of WAV files for several selected. A file that cannot be played says so, and why in a tool tip. The
/// records that it shows are the caller's.
class CSoundListBox : public CListBox {
public:
    /// At the end, or at its place in a sorted list.
    void add(const ListedSound& sound);
    void insert(int index, const ListedSound& sound);
    /// Null for an item that stands for no file.
    const ListedSound* soundAt(int index) const;
    /// Ascending.
    std::vector<int> selection() const;
    /// Nothing is selected but `count` items from `first` on.
    void selectOnly(int first, int count);

protected:
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);

    DECLARE_MESSAGE_MAP()

private:
    CToolTipCtrl m_tip;
    const ListedSound* m_pTipOf = nullptr;
};
