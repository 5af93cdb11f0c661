#include "terrain/tools/drag_tools.h"

#include "engine/qx_map.h"
#include "terrain/grid/footprint.h"
#include "terrain/grid/saturating.h"
#include "terrain/model/map_editor_model.h"
#include "terrain/model/map_recording.h"
#include "terrain/model/map_selection.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>

namespace {

void takeSnapshot(CMapEditorModel& model, HeightSnapshot::Owner owner, const GridArea& area) {
    const qxCMap& map = *model.m_pMap;
    HeightSnapshot& snapshot = model.m_snapshot.area;
    snapshot = {}; // the old buffer goes before the new one comes
    snapshot.heights = std::make_unique_for_overwrite<int[]>(area.pointCount());
    int* next = snapshot.heights.get();
    for (int z = area.z0; z <= area.z1; ++z) {
        for (int x = area.x0; x <= area.x1; ++x) {
            *next++ = map.getPointHeight(x, z);
        }
    }
    snapshot.area = area;
    snapshot.owner = owner;
}

void raiseSelection(CMapEditorModel& model, int amount) {
    const HeightSnapshot& snapshot = model.m_snapshot.area;
    if (model.m_stroke.firstUpdate) {
        const GridArea area = selectedPoints(model);
        recordBlock(model, area.x0, area.z0, area.x1, area.z1);
        takeSnapshot(model, HeightSnapshot::Owner::RAISE, area);
    }
    if (snapshot.owner != HeightSnapshot::Owner::RAISE) {
        return;
    }
    qxCMap& map = *model.m_pMap;
    const GridArea area = snapshot.area;
    const int* height = snapshot.heights.get();
    for (int z = area.z0; z <= area.z1; ++z) {
        for (int x = area.x0; x <= area.x1; ++x) {
            map.setPointHeight(x, z, subtractSaturating(*height++, amount), true);
        }
    }
}

int& heightIn(BrushSnapshot& snapshot, int dx, int dz) {
    return snapshot.heights[static_cast<std::size_t>(dx)][static_cast<std::size_t>(dz)];
}

void takeBrushSnapshot(CMapEditorModel& model, int size) {
    const StrokeState& stroke = model.m_stroke;
    recordBlock(model, stroke.x, stroke.z, std::int64_t{stroke.x} + size - 1,
                std::int64_t{stroke.z} + size - 1);
    BrushSnapshot& snapshot = model.m_snapshot.brush;
    for (int dz = 0; dz < size; ++dz) {
        for (int dx = 0; dx < size; ++dx) {
            heightIn(snapshot, dx, dz) =
                model.m_pMap->getPointHeight(addSaturating(stroke.x, dx), addSaturating(stroke.z, dz));
        }
    }
    snapshot.x = stroke.x;
    snapshot.z = stroke.z;
    snapshot.size = size;
}

void raiseBrush(CMapEditorModel& model, int amount) {
    const StrokeState& stroke = model.m_stroke;
    BrushSnapshot& snapshot = model.m_snapshot.brush;
    const auto footprint = brushFootprint(model.m_nBrushSize, stroke.edge, stroke.corner);
    if (stroke.firstUpdate && !footprint.empty()) {
        takeBrushSnapshot(model, brushBlockSize(model.m_nBrushSize));
    }
    for (const auto [dx, dz] : footprint) {
        if (dx < snapshot.size && dz < snapshot.size) {
            model.m_pMap->setPointHeight(addSaturating(snapshot.x, dx), addSaturating(snapshot.z, dz),
                                         subtractSaturating(heightIn(snapshot, dx, dz), amount), true);
        }
    }
}

/// Record and take the points of the bump around the picked cell.
void takeMagnetSnapshot(CMapEditorModel& model) {
    const std::int64_t x = model.m_stroke.x;
    const std::int64_t z = model.m_stroke.z;
    const std::int64_t radius = model.m_nStrength;
    const GridArea area = areaNearGrid(*model.m_pMap, x - radius, z - radius, x + radius + 1, z + radius + 1);
    recordBlock(model, area.x0, area.z0, area.x1, area.z1);
    takeSnapshot(model, HeightSnapshot::Owner::MAGNET, area);
    model.m_snapshot.area.x = model.m_stroke.x;
    model.m_snapshot.area.z = model.m_stroke.z;
    model.m_snapshot.area.radius = model.m_nStrength;
}

/// Share of the amount that a point at this distance from the middle of the bump moves by, 1.0 to 0.0.
double bumpShare(double dx, double dz, double radius) {
    constexpr float PI = 3.1415927F;
    const double distance = std::sqrt(dx * dx + dz * dz);
    const double f = std::min(distance / (radius + 0.5), 1.0);
    return (1.0 + std::cos(PI * f)) * 0.5;
}

} // namespace

void raise(CMapEditorModel& model, int amount) {
    if (model.m_selection.exists) {
        raiseSelection(model, amount);
    } else {
        raiseBrush(model, amount);
    }
}

void magnet(CMapEditorModel& model, int amount) {
    const HeightSnapshot& snapshot = model.m_snapshot.area;
    if (model.m_stroke.firstUpdate) {
        takeMagnetSnapshot(model);
    }
    if (snapshot.owner != HeightSnapshot::Owner::MAGNET) {
        return;
    }
    const GridArea area = snapshot.area;
    const double middleX = snapshot.x + 0.5;
    const double middleZ = snapshot.z + 0.5;
    const int* height = snapshot.heights.get();
    for (int z = area.z0; z <= area.z1; ++z) {
        for (int x = area.x0; x <= area.x1; ++x) {
            const double share = bumpShare(x - middleX, z - middleZ, snapshot.radius);
            const int offset = truncateSaturating(amount * share);
            model.m_pMap->setPointHeight(x, z, subtractSaturating(*height++, offset), true);
        }
    }
}
