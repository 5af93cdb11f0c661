#include "terrain/model/map_selection.h"

#include "engine/qx_map.h"
#include "terrain/grid/saturating.h"
#include "terrain/model/map_editor_model.h"

#include <algorithm>
#include <utility>

namespace {

constexpr qxCColour MARK_ON{255, 255, 255, 32};
constexpr qxCColour MARK_OFF{0, 0, 0, 0};

void setSize(MapSelection& selection) {
    selection.width = saturate(std::int64_t{selection.x1} - selection.x0 + 1);
    selection.height = saturate(std::int64_t{selection.z1} - selection.z0 + 1);
    selection.exists = true;
}

} // namespace

void drawMarkRect(qxCMap& map, int x0, int z0, int x1, int z1, Mark mark) {
    const auto [left, right] = std::minmax(x0, x1);
    const auto [near, far] = std::minmax(z0, z1);
    const qxCColour& colour = mark == Mark::ON ? MARK_ON : MARK_OFF;
    const GridArea area = areaNearGrid(map, left, near, right, far);
    const GridArea inner = areaNearGrid(map, left, std::int64_t{near} + 1, right, std::int64_t{far} - 1);
    map.lockMarkerLayer();
    for (int x = area.x0; x <= area.x1; ++x) {
        map.setMarkerPixel(qxMapMarkerStroke, x, near, colour);
        map.setMarkerPixel(qxMapMarkerStroke, x, far, colour);
    }
    for (int z = inner.z0; z <= inner.z1; ++z) {
        map.setMarkerPixel(qxMapMarkerStroke, left, z, colour);
        map.setMarkerPixel(qxMapMarkerStroke, right, z, colour);
    }
    map.unlockMarkerLayer();
}

void selectAll(CMapEditorModel& model) {
    dropSelection(model);
    MapSelection& selection = model.m_selection;
    selection.x0 = 0;
    selection.z0 = 0;
    selection.x1 = model.m_pMap->getGridDim() - 1;
    selection.z1 = selection.x1;
    setSize(selection);
    drawMarkRect(*model.m_pMap, selection.x0, selection.z0, selection.x1, selection.z1, Mark::ON);
}

void deselect(CMapEditorModel& model) {
    dropSelection(model);
    model.m_selection.x0 = 0;
    model.m_selection.z0 = 0;
}

void dropSelection(CMapEditorModel& model) {
    MapSelection& selection = model.m_selection;
    if (selection.exists) {
        drawMarkRect(*model.m_pMap, selection.x0, selection.z0, selection.x1, selection.z1, Mark::OFF);
        selection.exists = false;
    }
}

void startSelection(CMapEditorModel& model, int x, int z) {
    dropSelection(model);
    model.m_selection.x0 = x;
    model.m_selection.z0 = z;
}

void completeSelection(CMapEditorModel& model) {
    MapSelection& selection = model.m_selection;
    if (selection.x0 > selection.x1) {
        std::swap(selection.x0, selection.x1);
    }
    if (selection.z0 > selection.z1) {
        std::swap(selection.z0, selection.z1);
    }
    setSize(selection);
}

GridArea selectedPoints(const CMapEditorModel& model) {
    const MapSelection& selection = model.m_selection;
    return areaNearGrid(*model.m_pMap, selection.x0, selection.z0, std::int64_t{selection.x1} + 1,
                        std::int64_t{selection.z1} + 1);
}
