#include "host/random_session.h"

#include "resources/resource_ids.h"
#include "terrain/model/map_undo_list.h"

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

int indexOf(const CMemoryMap& map, const qxCMapDetailRecord* detail) {
    for (int i = 0; i < map.getDetails().size(); ++i) {
        if (&map.getDetails()[i] == detail) {
            return i;
        }
    }
    return detail == nullptr ? -1 : -2;
}

int indexOf(const CMemoryScene& scene, const qxCTexture* texture) {
    for (int i = 0; i < scene.getNumTextures(); ++i) {
        if (scene.getTexture(i) == texture) {
            return i;
        }
    }
    return texture == nullptr ? -1 : -2;
}

bool isSame(const qxCVector3d& a, const qxCVector3d& b) {
    return isSame(a.x, b.x) && isSame(a.y, b.y) && isSame(a.z, b.z);
}

bool isSame(const qxCMapDetailRecord& a, const qxCMapDetailRecord& b) {
    return a.type == b.type && a.highlighted == b.highlighted && isSame(a.scalar, b.scalar) &&
           isSame(a.point0, b.point0) && isSame(a.point1, b.point1) && isSame(a.point2, b.point2);
}

bool isSame(const qxCMapMultiTexture& a, const qxCMapMultiTexture& b) {
    return a.tint1 == b.tint1 && a.tint2 == b.tint2 && isSame(a.blend, b.blend) &&
           isSame(a.variation, b.variation);
}

bool isSame(const _qxMapTerrainDef& a, const _qxMapTerrainDef& b) {
    return std::strcmp(a.name, b.name) == 0 && a.preserveFlatAreas == b.preserveFlatAreas &&
           isSame(a.noise, b.noise) && isSame(a.effectOnNeighbours, b.effectOnNeighbours) &&
           isSame(a.weighting, b.weighting) &&
           std::ranges::equal(a.filter, b.filter, [](float x, float y) { return isSame(x, y); });
}

bool isSame(const qxCTexture& a, const qxCTexture& b) {
    return std::strcmp(a.name.getString(), b.name.getString()) == 0 &&
           std::strcmp(a.getFilename(), b.getFilename()) == 0 && a.getSize() == b.getSize() &&
           a.getPixelFormat() == b.getPixelFormat();
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
    const auto sameCursor = [](const EditCursor& a, const EditCursor& b) {
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
    return compareRecords() &&
           isEqual("history", g_mapUndoList.getCount(),
                   static_cast<std::int64_t>(m_reference.history.size())) &&
           isEqual("open flag", m_driver.isOpen(), m_reference.isOpen) &&
           isEqual("editing flag", m_driver.isEditing(), m_reference.isEditing) &&
           (!m_reference.isOpen || comparePanel());
}

/// Report the first of `count` records of a kind that differs, each got by its index.
template <class Get> bool CRandomSession::compareEach(const char* kind, int count, int expected, Get get) {
    for (int i = 0; i < std::min(count, expected); ++i) {
        const auto [a, b] = get(i);
        if (!isSame(*a, *b)) {
            return report(text(kind, i));
        }
    }
    return isEqual(kind, count, expected);
}

bool CRandomSession::compareRecords() {
    CMemoryMap& actual = m_actualMaps[m_nMap];
    CMemoryMap& expected = m_expectedMaps[m_nMap];
    const auto isSameTexture = [this](const char* what, const qxCTexture* a, const qxCTexture* b) {
        return isEqual(what, indexOf(m_actualScene, a), indexOf(m_expectedScene, b));
    };
    const CDetailList& details = actual.getDetails();
    const CDetailList& otherDetails = expected.getDetails();
    bool alike = compareEach("details", details.size(), otherDetails.size(),
                             [&](int i) { return std::pair(&details[i], &otherDetails[i]); });
    for (int i = 0; alike && i < details.size(); ++i) {
        alike = isSameTexture("detail's texture", details[i].texture, otherDetails[i].texture);
    }
    for (const qxMapLayerType layer : {qxMapLayerSmooth, qxMapLayerRough, qxMapLayerWater}) {
        alike = alike && isSameTexture("base texture", actual.getTexture(layer), expected.getTexture(layer));
    }
    if (alike &&
        (actual.getAmbient() != expected.getAmbient() || actual.getDiffuse() != expected.getDiffuse())) {
        return report("material colours");
    }
    return alike &&
           compareEach(
               "definitions", actual.getNumMultiTextures(), expected.getNumMultiTextures(),
               [&](int i) { return std::pair(actual.getMultiTexture(i), expected.getMultiTexture(i)); }) &&
           compareEach(
               "terrain types", actual.getNumTerrainDefs(), expected.getNumTerrainDefs(),
               [&](int i) { return std::pair(actual.getTerrainDef(i), expected.getTerrainDef(i)); }) &&
           compareEach("textures", m_actualScene.getNumTextures(), m_expectedScene.getNumTextures(),
                       [&](int i) {
                           return std::pair(m_actualScene.getTexture(i), m_expectedScene.getTexture(i));
                       }) &&
           isEqual("current definition", actual.getCurrentMultiTexture(),
                   expected.getCurrentMultiTexture()) &&
           isEqual("tiling", actual.getTextureTiling(), expected.getTextureTiling()) &&
           isEqual("map flag", actual.hasFlag(qxMapFlagChecker), expected.hasFlag(qxMapFlagChecker)) &&
           isEqual("fog", m_actualScene.getFogMode(), m_expectedScene.getFogMode());
}

bool CRandomSession::comparePanel() {
    const CMapEditorModel& model = *m_driver.model();
    const ReferencePanel& panel = m_reference.panel;
    const MapSelection& selection = model.m_selection;
    if (!isSame(model.m_fGradient, panel.gradient)) {
        return report("gradient");
    }
    if (model.getToolTint() != panel.toolTint) {
        return report("tint");
    }
    return isEqual("detail texture", indexOf(m_actualScene, model.m_pDetailTexture),
                   indexOf(m_expectedScene, panel.detailTexture)) &&
           isEqual("tab", model.isDetailsTab(), panel.isDetailsTab) &&
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
