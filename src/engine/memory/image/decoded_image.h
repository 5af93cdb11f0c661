#pragma once

#include "engine/qx_colour.h"

#include <vector>

/// The pixels of an image file.
struct DecodedImage {
    int width = 0;                 ///< 1 to qxCImageFile::MAX_EDGE
    int height = 0;                ///< 1 to qxCImageFile::MAX_EDGE
    std::vector<qxCColour> pixels; ///< width * height, rows from the top
};
