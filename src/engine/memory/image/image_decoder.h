#pragma once

#include "engine/qx_api.h"
#include "engine/qx_colour.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

/// The pixels of an image file.
struct DecodedImage {
    int width = 0;                 ///< 1 to qxCImageFile::MAX_EDGE
    int height = 0;                ///< 1 to qxCImageFile::MAX_EDGE
    std::vector<qxCColour> pixels; ///< width * height, rows from the top
};

/// Decodes the bytes of a PNG or TGA file. Nothing for any other content, for a size beyond
/// qxCImageFile::MAX_EDGE and for a file that does not hold all of its pixels. Memory is taken only when the
/// bytes at hand can hold the image that the header promises.
QX_API std::optional<DecodedImage> decodeImage(std::span<const std::uint8_t> bytes);
