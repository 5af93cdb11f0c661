#pragma once

#include <span>

/// A point relative to the picked one.
struct FootprintPoint {
    int dx;
    int dz;
};

/// The points that a brush of size 0 to 5 touches, row by row (z outer, x inner): the `corner` of the cell
/// (0 to 3), the two ends of its `edge` (0 to 5), the cell, a plus, 3 x 3 points, a disc of 21 points. Larger
/// brushes grow towards +x and +z. Empty for a size, edge or corner that does not exist.
std::span<const FootprintPoint> brushFootprint(int brushSize, int edge, int corner);

/// Points a side of the block, from the picked point on, that holds every footprint of the brush size; 0 for
/// a size that does not exist.
int brushBlockSize(int brushSize);
