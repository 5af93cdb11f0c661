#include "engine/qx_map.h"
#include "terrain/map_editor_model.h"
#include "terrain/map_recording.h"
#include "terrain/map_selection.h"
#include "terrain/tools/footprint.h"
#include "terrain/tools/height_tools.h"
#include "terrain/tools/saturating.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

// Raise and Magnet: an update replaces the effect of the one before, so both work from the heights that the
// first update found.

namespace {

constexpr int TABLE_EDGE = 5;

// Heights under the brush, [dx][dz], for Raise without a selection.
std::array<std::array<int, TABLE_EDGE>, TABLE_EDGE> s_brushHeights;

int& brushHeight(int dx, int dz) {
    return s_brushHeights[static_cast<std::size_t>(dx)][static_cast<std::size_t>(dz)];
}

void takeSnapshot(CMapEditorModel& model, HeightSnapshot::Owner owner, const GridArea& area) {
    const qxCMap& map = *model.m_pMap;
    HeightSnapshot& snapshot = model.m_heightBuffer;
    snapshot = {}; // the old buffer goes before the new one comes
    snapshot.heights.resize(area.pointCount());
    std::size_t next = 0;
    for (int z = area.z0; z <= area.z1; ++z) {
        for (int x = area.x0; x <= area.x1; ++x) {
            snapshot.heights[next++] = map.getPointHeight(x, z);
        }
    }
    snapshot.area = area;
    snapshot.owner = owner;
}

/// Where panel settings changed in the middle of a stroke, its snapshot may be of another tool or of other
/// points: then there is nothing to work from.
bool hasSnapshot(const CMapEditorModel& model, HeightSnapshot::Owner owner, const GridArea& area) {
    return model.m_heightBuffer.owner == owner && model.m_heightBuffer.area == area;
}

void raiseSelection(CMapEditorModel& model, int amount) {
    const GridArea area = selectedPoints(model);
    if (model.m_stroke.firstUpdate) {
        recordBlock(model, area.x0, area.z0, area.x1, area.z1);
        takeSnapshot(model, HeightSnapshot::Owner::RAISE, area);
    }
    if (!hasSnapshot(model, HeightSnapshot::Owner::RAISE, area)) {
        return;
    }
    qxCMap& map = *model.m_pMap;
    const int* height = model.m_heightBuffer.heights.data();
    for (int z = area.z0; z <= area.z1; ++z) {
        for (int x = area.x0; x <= area.x1; ++x) {
            map.setPointHeight(x, z, subtractSaturating(*height++, amount), true);
        }
    }
}

void takeBrushSnapshot(CMapEditorModel& model, int size) {
    const StrokeState& stroke = model.m_stroke;
    recordBlock(model, stroke.x, stroke.z, std::int64_t{stroke.x} + size - 1,
                std::int64_t{stroke.z} + size - 1);
    for (int dz = 0; dz < size; ++dz) {
        for (int dx = 0; dx < size; ++dx) {
            brushHeight(dx, dz) =
                model.m_pMap->getPointHeight(addSaturating(stroke.x, dx), addSaturating(stroke.z, dz));
        }
    }
    model.m_brushSnapshot = {stroke.x, stroke.z, size};
}

void raiseBrush(CMapEditorModel& model, int amount) {
    const StrokeState& stroke = model.m_stroke;
    const BrushSnapshot& snapshot = model.m_brushSnapshot;
    const auto footprint = brushFootprint(model.m_nBrushSize, stroke.edge, stroke.corner);
    if (footprint.empty()) {
        return;
    }
    if (stroke.firstUpdate) {
        takeBrushSnapshot(model, brushBlockSize(model.m_nBrushSize));
    }
    if (snapshot.x != stroke.x || snapshot.z != stroke.z) {
        return;
    }
    for (const auto [dx, dz] : footprint) {
        if (dx < snapshot.size && dz < snapshot.size) {
            model.m_pMap->setPointHeight(addSaturating(stroke.x, dx), addSaturating(stroke.z, dz),
                                         subtractSaturating(brushHeight(dx, dz), amount), true);
        }
    }
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
    const StrokeState& stroke = model.m_stroke;
    const std::int64_t radius = model.m_nStrength;
    const GridArea area = areaNearGrid(*model.m_pMap, stroke.x - radius, stroke.z - radius,
                                       stroke.x + radius + 1, stroke.z + radius + 1);
    if (stroke.firstUpdate) {
        recordBlock(model, area.x0, area.z0, area.x1, area.z1);
        takeSnapshot(model, HeightSnapshot::Owner::MAGNET, area);
    }
    if (!hasSnapshot(model, HeightSnapshot::Owner::MAGNET, area)) {
        return;
    }
    const int* height = model.m_heightBuffer.heights.data();
    for (int z = area.z0; z <= area.z1; ++z) {
        for (int x = area.x0; x <= area.x1; ++x) {
            const double share =
                bumpShare(static_cast<double>(x) - stroke.x - 0.5, static_cast<double>(z) - stroke.z - 0.5,
                          static_cast<double>(radius));
            const int offset = truncateSaturating(amount * share);
            model.m_pMap->setPointHeight(x, z, subtractSaturating(*height++, offset), true);
        }
    }
}
