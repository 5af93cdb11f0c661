#include "host/random_session.h"

#include "terrain/map_undo_list.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iostream>
#include <span>

namespace {

template <typename T> bool haveSameBytes(std::span<const T> a, std::span<const T> b) {
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size_bytes()) == 0;
}

/// Index of the first point at which two maps' layers differ.
template <typename T> std::int64_t firstDifference(std::span<const T> a, std::span<const T> b) {
    return std::ranges::mismatch(a, b).in1 - a.begin();
}

bool isSame(float a, float b) {
    return a == b || (std::isnan(a) && std::isnan(b));
}

bool isSame(const qxCVector3d& a, const qxCVector3d& b) {
    return isSame(a.x, b.x) && isSame(a.y, b.y) && isSame(a.z, b.z);
}

int indexOf(const CMemoryMap& map, const qxCMapDetailRecord* detail) {
    for (int i = 0; i < map.getDetails().size(); ++i) {
        if (&map.getDetails()[i] == detail) {
            return i;
        }
    }
    return detail == nullptr ? -1 : -2;
}

} // namespace

bool CRandomSession::report(const std::string& what) {
    std::cerr << "seed " << m_nSeed << ", operation " << m_nDone << ": different " << what
              << "\nthe last operations:\n";
    for (const std::string& line : m_log) {
        std::cerr << "  " << line << '\n';
    }
    return false;
}

bool CRandomSession::isEqual(const char* what, std::int64_t actual, std::int64_t expected) {
    return actual == expected || report(text(what, actual, "instead of", expected));
}

bool CRandomSession::compare() {
    const CMemoryMap& actual = m_actualMaps[m_nMap];
    const CMemoryMap& expected = m_expectedMaps[m_nMap];
    const auto sameCursor = [](const CEditCursor& a, const CEditCursor& b) {
        return a.x == b.x && a.z == b.z && a.kind == b.kind;
    };
    if (!haveSameBytes(actual.getHeights(), expected.getHeights())) {
        const auto point = firstDifference(actual.getHeights(), expected.getHeights());
        const auto i = static_cast<std::size_t>(point);
        return report(text("heights: at point", point, actual.getHeights()[i], "instead of",
                           expected.getHeights()[i], "strength", m_reference.panel.strength));
    }
    if (!haveSameBytes(actual.getColours(), expected.getColours())) {
        return report("colours");
    }
    if (!haveSameBytes(actual.getBlends(), expected.getBlends())) {
        return report("blends");
    }
    if (!haveSameBytes(actual.getWaterFlags(), expected.getWaterFlags())) {
        return report("water");
    }
    if (!haveSameBytes(actual.getMarkers(), expected.getMarkers())) {
        return report("markers");
    }
    if (!std::ranges::equal(actual.getEditCursors(), expected.getEditCursors(), sameCursor)) {
        return report("edit cursors");
    }
    return compareDetails() &&
           isEqual("history", g_mapUndoList.getCount(),
                   static_cast<std::int64_t>(m_reference.history.size())) &&
           isEqual("open flag", m_driver.isOpen(), m_reference.isOpen) &&
           isEqual("editing flag", m_driver.isEditing(), m_reference.isEditing) &&
           (!m_reference.isOpen || comparePanel());
}

bool CRandomSession::compareDetails() {
    const CDetailList& actual = m_actualMaps[m_nMap].getDetails();
    const CDetailList& expected = m_expectedMaps[m_nMap].getDetails();
    if (!isEqual("details", actual.size(), expected.size())) {
        return false;
    }
    for (int i = 0; i < actual.size(); ++i) {
        const qxCMapDetailRecord& a = actual[i];
        const qxCMapDetailRecord& b = expected[i];
        if (a.texture != b.texture || a.type != b.type || a.highlighted != b.highlighted ||
            !isSame(a.scalar, b.scalar) || !isSame(a.point0, b.point0) || !isSame(a.point1, b.point1) ||
            !isSame(a.point2, b.point2)) {
            return report(text("detail", i));
        }
    }
    return true;
}

bool CRandomSession::comparePanel() {
    const CMapEditorModel& model = *m_driver.model();
    const CReferenceEditor::Panel& panel = m_reference.panel;
    const MapSelection& selection = model.m_selection;
    // The field shows a few digits, and the panel reads them back.
    if (std::abs(model.m_fGradient - panel.gradient) > 0.001F) {
        return report("gradient");
    }
    if (m_driver.hasControls() && !isEqual("undo fill", m_driver.shownFill(), panel.fill)) {
        return false;
    }
    return isEqual("tab", model.isDetailsTab(), panel.isDetailsTab) &&
           isEqual("tool", model.m_nTool, panel.tool) &&
           isEqual("other tool", model.m_nOtherTabTool, panel.otherTool) &&
           isEqual("brush", model.m_nBrushSize, panel.brush) &&
           isEqual("strength", model.m_nStrength, panel.strength) &&
           isEqual("height", model.m_nHeight, panel.height) &&
           isEqual("current detail", indexOf(m_actualMaps[m_nMap], model.m_pCurrentDetail),
                   indexOf(m_expectedMaps[m_nMap], panel.detail)) &&
           isEqual("selection", selection.exists, panel.selected) &&
           isEqual("selection x0", selection.x0, panel.x0) &&
           isEqual("selection z0", selection.z0, panel.z0) &&
           isEqual("selection x1", selection.x1, panel.x1) &&
           isEqual("selection z1", selection.z1, panel.z1) &&
           isEqual("stroke x", model.m_stroke.x, panel.x) && isEqual("stroke z", model.m_stroke.z, panel.z) &&
           isEqual("first update", model.m_stroke.firstUpdate, panel.first);
}
