#pragma once

#include "engine/qx_vector3d.h"
#include "terrain/grid/brush.h"
#include "terrain/grid/grid_area.h"

#include <array>
#include <memory>

class qxCMapDetailRecord;

/// Heights of an area, for Raise on a selection and for Magnet.
struct HeightSnapshot {
    enum class Owner { NONE, RAISE, MAGNET };

    Owner owner = Owner::NONE;      ///< whose it is; NONE: not taken in this stroke
    GridArea area;                  ///< the points held
    std::unique_ptr<int[]> heights; ///< rows of equal z, x ascending
    int x = 0;                      ///< Magnet: the picked cell
    int z = 0;
    int radius = 0; ///< Magnet: in points
};

/// Heights under the brush, for Raise without a selection.
struct BrushSnapshot {
    int x = 0; ///< the picked cell
    int z = 0;
    int size = 0; ///< points a side; 0: not taken in this stroke
    std::array<std::array<int, MAX_BRUSH_EDGE>, MAX_BRUSH_EDGE> heights = {}; ///< [dx][dz]
};

/// The detail that is dragged, turned or scaled.
struct DetailSnapshot {
    qxCMapDetailRecord* record = nullptr; ///< not owned; null: there is nothing to edit
    qxCVector3d point0;
    qxCVector3d point1;
    qxCVector3d point2;
    int x = 0; ///< picked point
    int z = 0;
};

/// What a stroke's first update found. An update replaces the effect of the one before, so all of them work
/// from here; whatever the panel changes in the middle of the stroke, they go on with these points, for these
/// are recorded.
struct StrokeSnapshot {
    HeightSnapshot area;
    BrushSnapshot brush;
    DetailSnapshot detail; ///< stays until the next stroke that takes one
};
