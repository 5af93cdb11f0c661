#include "host/random_session.h"

#include "resources/resource_ids.h"
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

/// What the records of a map and its scene hold, value by value.
struct Records {
    std::vector<float> numbers;
    std::vector<std::string> names;

    void add(std::initializer_list<float> values) { numbers.insert(numbers.end(), values); }
    void add(const qxCColour& c) {
        for (const int channel : {c.r, c.g, c.b, c.a}) {
            numbers.push_back(static_cast<float>(channel));
        }
    }
    void add(const qxCVector3d& v) { add({v.x, v.y, v.z}); }
    void add(int value) { numbers.push_back(static_cast<float>(value)); }
};

Records recordsOf(CMemoryMap& map, const CMemoryScene& scene) {
    Records all;
    for (int i = 0; i < map.getDetails().size(); ++i) {
        const qxCMapDetailRecord& detail = map.getDetails()[i];
        all.add(indexOf(scene, detail.texture));
        all.add(detail.type);
        all.add({static_cast<float>(detail.highlighted), detail.scalar});
        all.add(detail.point0);
        all.add(detail.point1);
        all.add(detail.point2);
    }
    for (int i = 0; i < map.getNumMultiTextures(); ++i) {
        const qxCMapMultiTexture& definition = *map.getMultiTexture(i);
        all.add(definition.tint1);
        all.add(definition.tint2);
        all.add({definition.blend, definition.variation});
    }
    for (int i = 0; i < map.getNumTerrainDefs(); ++i) {
        const _qxMapTerrainDef& type = *map.getTerrainDef(i);
        all.names.emplace_back(type.name);
        all.add(type.preserveFlatAreas);
        all.add({type.noise, type.effectOnNeighbours, type.weighting});
        all.numbers.insert(all.numbers.end(), std::begin(type.filter), std::end(type.filter));
    }
    for (const qxMapLayerType layer : {qxMapLayerSmooth, qxMapLayerRough, qxMapLayerWater}) {
        all.add(indexOf(scene, map.getTexture(layer)));
    }
    all.add(map.getAmbient());
    all.add(map.getDiffuse());
    for (const int value :
         {map.getCurrentMultiTexture(), map.getTextureTiling(),
          static_cast<int>(map.hasFlag(qxMapFlagChecker)), static_cast<int>(scene.getFogMode())}) {
        all.add(value);
    }
    for (int i = 0; i < scene.getNumTextures(); ++i) {
        const qxCTexture& texture = *scene.getTexture(i);
        all.names.emplace_back(texture.name.getString());
        all.names.emplace_back(texture.getFilename());
        all.add(texture.getSize());
        all.add(texture.getPixelFormat());
    }
    return all;
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

bool CRandomSession::isSeenAlike(const Seen& actual, const Seen& expected) {
    if (m_bAlike && actual != expected) {
        const auto [a, b] = std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
        m_bAlike = report(text("sight: at", a - actual.begin(), a != actual.end() ? *a : "nothing",
                               "instead of", b != expected.end() ? *b : "nothing"));
    }
    return m_bAlike;
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
    return compareRecords() &&
           isEqual("history", g_mapUndoList.getCount(),
                   static_cast<std::int64_t>(m_reference.history.size())) &&
           isEqual("open flag", m_driver.isOpen(), m_reference.isOpen) &&
           isEqual("editing flag", m_driver.isEditing(), m_reference.isEditing) &&
           (!m_reference.isOpen || comparePanel());
}

/// Details, texture definitions, terrain types, material, and the scene's textures.
bool CRandomSession::compareRecords() {
    const CMemoryMap& map = m_actualMaps[m_nMap];
    const Records actual = recordsOf(m_actualMaps[m_nMap], m_actualScene);
    const Records expected = recordsOf(m_expectedMaps[m_nMap], m_expectedScene);
    const auto differ = std::ranges::mismatch(actual.numbers, expected.numbers,
                                              [](float a, float b) { return isSame(a, b); });
    if (actual.numbers.size() != expected.numbers.size() || differ.in1 != actual.numbers.end()) {
        return report(text("records: with", map.getDetails().size(), "details and", map.getNumMultiTextures(),
                           "definitions, of", actual.numbers.size(), "instead of", expected.numbers.size(),
                           "numbers the one at", differ.in1 - actual.numbers.begin()));
    }
    return actual.names == expected.names || report("names of terrain types or textures");
}

bool CRandomSession::comparePanel() {
    const CMapEditorModel& model = *m_driver.model();
    const ReferencePanel& panel = m_reference.panel;
    const MapSelection& selection = model.m_selection;
    if (!isSame(model.m_fGradient, panel.gradient)) {
        return report("gradient");
    }
    if (model.getToolTint() != panel.swatches.at(IDC_TINT_COLOUR)) {
        return report("tint");
    }
    if (m_driver.hasControls() && !compareControls()) {
        return false;
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

bool CRandomSession::compareControls() {
    const std::vector<int> ids = m_driver.controls();
    const Seen actual = m_driver.shown();
    const Seen expected = m_reference.shown(ids);
    const auto [a, b] = std::ranges::mismatch(actual, expected);
    return a == actual.end() ||
           report(text("control", ids[static_cast<std::size_t>(a - actual.begin())], *a, "instead of", *b));
}
