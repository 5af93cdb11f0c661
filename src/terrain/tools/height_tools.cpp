#include "terrain/tools/height_tools.h"

#include "engine/qx_map.h"
#include "engine/qx_random.h"
#include "terrain/grid/footprint.h"
#include "terrain/grid/saturating.h"
#include "terrain/model/map_editor_model.h"
#include "terrain/model/map_recording.h"
#include "terrain/model/map_selection.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace {

/// Heights of the cell's corners (x, z), (x + 1, z), (x, z + 1), (x + 1, z + 1).
using CellHeights = std::array<int, 4>;

/// The corners of the picked cell. Beyond the last int there are none: they fall together off the grid.
struct Cell {
    explicit Cell(const CMapEditorModel& model)
        : map(*model.m_pMap)
        , x0(model.m_stroke.x)
        , z0(model.m_stroke.z)
        , x1(addSaturating(x0, 1))
        , z1(addSaturating(z0, 1)) {}

    CellHeights read() const {
        return {map.getPointHeight(x0, z0), map.getPointHeight(x1, z0), map.getPointHeight(x0, z1),
                map.getPointHeight(x1, z1)};
    }

    void write(const CellHeights& heights, bool direct) const {
        map.setPointHeight(x0, z0, heights[0], direct);
        map.setPointHeight(x1, z0, heights[1], direct);
        map.setPointHeight(x0, z1, heights[2], direct);
        map.setPointHeight(x1, z1, heights[3], direct);
    }

    void record(CMapEditorModel& model) const { recordBlock(model, x0, z0, x1, z1); }

    qxCMap& map;
    int x0;
    int z0;
    int x1;
    int z1;
};

void setArea(CMapEditorModel& model, const GridArea& area) {
    recordBlock(model, area.x0, area.z0, area.x1, area.z1);
    for (int z = area.z0; z <= area.z1; ++z) {
        for (int x = area.x0; x <= area.x1; ++x) {
            model.m_pMap->setPointHeight(x, z, model.m_nHeight, true);
        }
    }
}

/// The cell's 4 x 4 neighbourhood, [i][j] at (x - 1 + i, z - 1 + j); past the grid's edge its border repeats.
using Neighbourhood = std::array<std::array<int, 4>, 4>;

Neighbourhood readNeighbourhood(const qxCMap& map, int x, int z) {
    const int last = map.getGridDim();
    const auto onGrid = [last](int base, std::size_t step) {
        return std::clamp(addSaturating(base, static_cast<int>(step) - 1), 0, last);
    };
    Neighbourhood heights;
    for (std::size_t i = 0; i < 4; ++i) {
        for (std::size_t j = 0; j < 4; ++j) {
            heights[i][j] = map.getPointHeight(onGrid(x, i), onGrid(z, j));
        }
    }
    return heights;
}

/// Mean of the 3 x 3 heights around corner (x + a, z + b).
std::int64_t meanAround(const Neighbourhood& heights, std::size_t a, std::size_t b) {
    std::int64_t sum = 0;
    for (std::size_t i = a; i < a + 3; ++i) {
        for (std::size_t j = b; j < b + 3; ++j) {
            sum += heights[i][j];
        }
    }
    return sum / 9;
}

int movedTowards(int height, std::int64_t target, int tenths) {
    // Two ints are less than 2^32 apart and tenths less than 2^31: the product fits 64 bits.
    return saturate(height + (target - height) * tenths / 10);
}

} // namespace

void flatten(CMapEditorModel& model) {
    const Cell cell(model);
    cell.record(model);
    const CellHeights heights = cell.read();
    const std::int64_t sum = std::int64_t{heights[0]} + heights[1] + heights[2] + heights[3];
    const int level = saturate(sum / 4);
    cell.write({level, level, level, level}, true);
}

void setHeight(CMapEditorModel& model) {
    const std::int64_t x = model.m_stroke.x;
    const std::int64_t z = model.m_stroke.z;
    if (model.m_selection.exists) {
        setArea(model, selectedPoints(model));
    } else if (model.m_nBrushSize == BRUSH_CELL) {
        setArea(model, areaNearGrid(*model.m_pMap, x, z, x + 1, z + 1));
    } else if (model.m_nBrushSize == BRUSH_BLOCK) {
        setArea(model, areaNearGrid(*model.m_pMap, x - 1, z - 1, x + 2, z + 2));
    }
}

void getHeight(CMapEditorModel& model) {
    const StrokeState& stroke = model.m_stroke;
    for (const auto [dx, dz] : brushFootprint(BRUSH_POINT, stroke.edge, stroke.corner)) {
        model.m_nHeight =
            model.m_pMap->getPointHeight(addSaturating(stroke.x, dx), addSaturating(stroke.z, dz));
    }
    model.showMembers();
}

void smooth(CMapEditorModel& model) {
    const StrokeState& stroke = model.m_stroke;
    if (stroke.x == stroke.lastX && stroke.z == stroke.lastZ) {
        return;
    }
    const Neighbourhood around = readNeighbourhood(*model.m_pMap, stroke.x, stroke.z);
    const Cell cell(model);
    cell.record(model);
    CellHeights heights = cell.read();
    for (std::size_t i = 0; i < heights.size(); ++i) {
        heights[i] = movedTowards(heights[i], meanAround(around, i % 2, i / 2), model.m_nStrength);
    }
    cell.write(heights, false);
}

void getGradient(CMapEditorModel& model) {
    const float gradient = model.m_pMap->getGradient(model.m_stroke.x, model.m_stroke.z);
    model.m_fGradient = std::isfinite(gradient) ? gradient : 0.0F; // a field cannot show what is no number
    model.showMembers();
}

void roughen(CMapEditorModel& model) {
    static qxCRandom s_generator; // one for the process: each stroke goes on where the last one ended
    const Cell cell(model);
    cell.record(model);
    CellHeights heights = cell.read();
    const float range = static_cast<float>(model.m_nStrength);
    for (int& height : heights) {
        height = addSaturating(height, truncateSaturating(s_generator.get(-range, range)));
    }
    cell.write(heights, true);
}
