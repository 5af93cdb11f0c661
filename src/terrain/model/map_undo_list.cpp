#include "terrain/model/map_undo_list.h"

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

void CMapUndoList::grow() {
    // The ring turns only at its full size: a smaller one starts at its first element and grows at its end.
    constexpr std::size_t FIRST_SIZE = 1024;
    m_ring.resize(std::clamp(m_ring.size() * 2, FIRST_SIZE, FULL_SIZE));
}
