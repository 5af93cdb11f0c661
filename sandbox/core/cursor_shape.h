#pragma once

#include <vector>

/// One edit-cursor mark on the ground, in the cell's own coordinates, 0 to 1 along x and z.
struct CursorShape {
    struct Position {
        double u = 0.0;
        double v = 0.0;
    };
    struct Line {
        Position from;
        Position to;
    };
    std::vector<Line> lines;   ///< to draw along the ground
    std::vector<Position> fan; ///< area to fill, a fan of triangles around the first position, or empty
};

/// The mark of edit-cursor kind 0 to 15; an empty one for any other kind. 0 outlines the cell; 1 to 4 are the
/// sides at u = 0, v = 0, u = 1 and v = 1; 5 to 8 ring the corners (0, 0), (1, 0), (0, 1) and (1, 1); 9 and
/// 10 are the diagonals from (0, 0) and from (1, 0); 11 to 14 are the quarter of a diamond whose middle is
/// the corner (0, 0), (1, 0), (1, 1) and (0, 1), so that the four cells of the plus brush make a whole
/// diamond; 15 is a cell with brackets at its corners.
const CursorShape& cursorShape(int kind);
