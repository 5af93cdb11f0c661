#include "terrain/map_undo_list.h"

#include <algorithm>

CMapUndoList g_mapUndoList;

double CMapUndoList::fillPercent() const {
    return static_cast<double>(m_nCount) * 100.0 / CAPACITY;
}

void CMapUndoList::clear() {
    m_ring = {};
    m_nHead = 0;
    m_nCount = 0;
}

void CMapUndoList::makeRoom() {
    constexpr std::size_t FIRST_SIZE = 1024;
    constexpr std::size_t FULL_SIZE = CAPACITY;
    if (m_ring.size() == FULL_SIZE) {
        m_nHead = m_nHead + 1 == FULL_SIZE ? 0 : m_nHead + 1;
        --m_nCount;
        return;
    }
    // The ring turns only at its full size: a smaller one starts at its first element and grows at its end.
    m_ring.resize(std::clamp(m_ring.size() * 2, FIRST_SIZE, FULL_SIZE));
}
