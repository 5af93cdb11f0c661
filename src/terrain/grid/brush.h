#pragma once

/// Brush sizes, in the order of the panel's brush buttons. brushFootprint says which points each touches.
enum BrushSize {
    BRUSH_POINT = 0, ///< one corner of the cell
    BRUSH_EDGE = 1,  ///< both ends of an edge or diagonal of the cell
    BRUSH_CELL = 2,  ///< the corners of the cell
    BRUSH_PLUS = 3,
    BRUSH_BLOCK = 4, ///< 3 x 3 points
    BRUSH_DISC = 5,  ///< 5 x 5 points without the outermost corners
    BRUSH_SIZE_COUNT = 6,
};

/// Most points a side of any brush.
constexpr int MAX_BRUSH_EDGE = 5;
