#include "terrain/tools/surface_tools.h"

#include "engine/qx_map.h"
#include "terrain/grid/footprint.h"
#include "terrain/grid/saturating.h"
#include "terrain/model/map_editor_model.h"
#include "terrain/model/map_recording.h"
#include "terrain/model/map_selection.h"

#include <algorithm>
#include <span>

namespace {

constexpr int COLOUR_LAYER = 0;

/// The strength in steps of `unit`, as a share that the engine's mixing takes.
float strengthShare(const CMapEditorModel& model, float unit) {
    return std::clamp(static_cast<float>(model.m_nStrength) * unit, 0.0F, 1.0F);
}

/// Tints one point after another; what does not change from point to point is worked out once.
class CPointTinter {
public:
    explicit CPointTinter(CMapEditorModel& model)
        : m_map(*model.m_pMap)
        , m_target(model.getToolTint())
        , m_nWaterHeight(truncateSaturating(m_map.waterLevel / m_map.heightScale))
        , m_fShare(strengthShare(model, 0.01F)) {
        m_target.a = 255;
    }

    void apply(int x, int z) const {
        if (m_map.getPointWater(x, z) && m_map.getPointHeight(x, z) <= m_nWaterHeight) {
            return;
        }
        const qxCColour colour = m_map.getPointColour(COLOUR_LAYER, x, z);
        m_map.setPointColour(COLOUR_LAYER, x, z, interpolate(colour, m_target, m_fShare));
    }

private:
    qxCMap& m_map;
    qxCColour m_target;
    int m_nWaterHeight; // in point-height units
    float m_fShare;
};

/// Record what a Tint or Paint brush may touch: the one point of BRUSH_POINT, else the block of the brush
/// size.
void recordBrush(CMapEditorModel& model, std::span<const FootprintPoint> footprint) {
    const std::int64_t x = model.m_stroke.x;
    const std::int64_t z = model.m_stroke.z;
    if (footprint.size() == 1) {
        const auto [dx, dz] = footprint.front();
        recordBlock(model, x + dx, z + dz, x + dx, z + dz);
    } else if (!footprint.empty()) {
        const int last = brushBlockSize(model.m_nBrushSize) - 1;
        recordBlock(model, x, z, x + last, z + last);
    }
}

std::span<const FootprintPoint> strokeFootprint(const CMapEditorModel& model) {
    return brushFootprint(model.m_nBrushSize, model.m_stroke.edge, model.m_stroke.corner);
}

/// The points that the plus and the 3 x 3 brush paint with half the weight: all but the centre of the plus,
/// the corners of the block.
bool isRim(int brushSize, const FootprintPoint& point) {
    const bool isPlus = point.dx == 1 || point.dz == 1;
    const bool isCentre = point.dx == 1 && point.dz == 1;
    return (brushSize == BRUSH_PLUS && !isCentre) || (brushSize == BRUSH_BLOCK && !isPlus);
}

void paintBrush(CMapEditorModel& model, float weight) {
    const auto footprint = strokeFootprint(model);
    recordBrush(model, footprint);
    for (const FootprintPoint& point : footprint) {
        const float share = isRim(model.m_nBrushSize, point) ? 0.5F : 1.0F;
        model.m_pMap->paintMultiTexture(addSaturating(model.m_stroke.x, point.dx),
                                        addSaturating(model.m_stroke.z, point.dz), weight * share);
    }
}

} // namespace

void tintGround(CMapEditorModel& model) {
    const CPointTinter tinter(model);
    if (!model.m_selection.exists) {
        const auto footprint = strokeFootprint(model);
        recordBrush(model, footprint);
        for (const auto [dx, dz] : footprint) {
            tinter.apply(addSaturating(model.m_stroke.x, dx), addSaturating(model.m_stroke.z, dz));
        }
        return;
    }
    const GridArea area = selectedPoints(model);
    recordBlock(model, area.x0, area.z0, area.x1, area.z1);
    for (int z = area.z0; z <= area.z1; ++z) {
        for (int x = area.x0; x <= area.x1; ++x) {
            tinter.apply(x, z);
        }
    }
}

void paint(CMapEditorModel& model) {
    const float weight = strengthShare(model, 0.1F);
    if (!model.m_selection.exists) {
        paintBrush(model, weight);
        return;
    }
    const GridArea area = selectedPoints(model);
    recordBlock(model, area.x0, area.z0, area.x1, area.z1);
    for (int x = area.x0; x <= area.x1; ++x) { // painting may depend on the order: it is x by x
        for (int z = area.z0; z <= area.z1; ++z) {
            model.m_pMap->paintMultiTexture(x, z, weight);
        }
    }
}

void flood(CMapEditorModel& model) {
    model.m_pMap->addWater(model.m_stroke.x, model.m_stroke.z);
}

void drain(CMapEditorModel& model) {
    model.m_pMap->removeWater(model.m_stroke.x, model.m_stroke.z);
}
