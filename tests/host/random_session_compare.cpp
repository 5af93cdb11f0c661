#include "host/random_session.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iostream>
#include <span>

namespace {

/// Equal, or neither of them a number.
bool isSame(float a, float b) {
    return a == b || (std::isnan(a) && std::isnan(b));
}

bool isSame(const qxCVector3d& a, const qxCVector3d& b) {
    return isSame(a.x, b.x) && isSame(a.y, b.y) && isSame(a.z, b.z);
}

bool isSame(const qxCMapDetailRecord& a, const qxCMapDetailRecord& b) {
    return a.type == b.type && a.texture == b.texture && a.highlighted == b.highlighted &&
           isSame(a.scalar, b.scalar) && isSame(a.point0, b.point0) && isSame(a.point1, b.point1) &&
           isSame(a.point2, b.point2);
}

/// Index of the first point at which two maps' layers differ; -1 when they are alike.
template <typename T> std::int64_t difference(std::span<const T> a, std::span<const T> b) {
    if (a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size_bytes()) == 0) {
        return -1;
    }
    return std::ranges::mismatch(a, b).in1 - a.begin();
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

bool CRandomSession::compareMaps() {
    const CMemoryMap& actual = m_actualMaps[m_nMap];
    const CMemoryMap& expected = m_expectedMaps[m_nMap];
    const struct {
        const char* name;
        std::int64_t point;
    } layers[] = {{"height", difference(actual.getHeights(), expected.getHeights())},
                  {"colour", difference(actual.getColours(), expected.getColours())},
                  {"blend", difference(actual.getBlends(), expected.getBlends())},
                  {"water", difference(actual.getWaterFlags(), expected.getWaterFlags())},
                  {"marker", difference(actual.getMarkers(), expected.getMarkers())}};
    for (const auto& [name, point] : layers) {
        if (point >= 0) {
            return report(text(name, "at point", point));
        }
    }
    const auto isSameCursor = [](const EditCursor& a, const EditCursor& b) {
        return a.x == b.x && a.z == b.z && a.kind == b.kind;
    };
    return std::ranges::equal(actual.getEditCursors(), expected.getEditCursors(), isSameCursor) ||
           report("edit cursors");
}

bool CRandomSession::compareDetails() {
    const CDetailList& actual = m_actualMaps[m_nMap].getDetails();
    const CDetailList& expected = m_expectedMaps[m_nMap].getDetails();
    bool alike = actual.size() == expected.size();
    for (int i = 0; alike && i < actual.size(); ++i) {
        alike = isSame(actual[i], expected[i]);
    }
    return alike || report("details");
}

bool CRandomSession::compare() {
    const bool mapsAlike =
        compareMaps() && compareDetails() &&
        (g_mapUndoList.getCount() == static_cast<int>(m_reference.history.size()) || report("history"));
    if (!mapsAlike || !m_reference.isOpen) {
        return mapsAlike;
    }
    const CTestPanel& model = *m_driver.model();
    const ReferencePanel& panel = m_reference.panel;
    const MapSelection& selection = model.m_selection;
    const struct {
        const char* name;
        int actual;
        int expected;
    } members[] = {{"tool", model.m_nTool, panel.tool},
                   {"other tool", model.m_nOtherTabTool, panel.otherTool},
                   {"brush", model.m_nBrushSize, panel.brush},
                   {"strength", model.m_nStrength, panel.strength},
                   {"height", model.m_nHeight, panel.height},
                   {"current detail", indexOf(m_actualMaps[m_nMap], model.m_pCurrentDetail),
                    indexOf(m_expectedMaps[m_nMap], panel.detail)},
                   {"selection", selection.exists, panel.selected},
                   {"selection x0", selection.x0, panel.x0},
                   {"selection z0", selection.z0, panel.z0},
                   {"selection x1", selection.x1, panel.x1},
                   {"selection z1", selection.z1, panel.z1},
                   {"stroke x", model.m_stroke.x, panel.x},
                   {"stroke z", model.m_stroke.z, panel.z},
                   {"first update", model.m_stroke.firstUpdate, panel.first}};
    for (const auto& [name, actual, expected] : members) {
        if (actual != expected) {
            return report(text(name, actual, "instead of", expected));
        }
    }
    return isSame(model.m_fGradient, panel.gradient) || report("gradient");
}
