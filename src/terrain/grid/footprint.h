#pragma once

#include "terrain/grid/brush.h"

#include <span>

/// A point relative to the picked one.
struct FootprintPoint {
    int dx;
    int dz;
};

/// The points that a brush (BrushSize) touches, row by row (z outer, x inner). BRUSH_POINT is the `corner` of
/// the cell (0 to 3), BRUSH_EDGE its `edge` (0 to 5); larger brushes grow towards +x and +z. Empty for a
/// size, edge or corner that does not exist.
std::span<const FootprintPoint> brushFootprint(int brushSize, int edge, int corner);

/// Points a side of the block, from the picked point on, that holds every footprint of the brush size; 0 for
/// a size that does not exist.
int brushBlockSize(int brushSize);
