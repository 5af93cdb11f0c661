#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

/// A decoded icon: rows from the top, four bytes a pixel (red, green, blue, alpha), not premultiplied.
struct IconImage {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels; ///< width * height * 4 bytes
};

/// Decodes the image of an icon in the form that the library's icons have: an uncompressed bitmap of sixteen
/// colours, bottom row first, followed by its one-bit mask.
/// Returns nothing when the data is of another form, damaged or larger than 256 pixels a side.
std::optional<IconImage> readIconImage(std::span<const std::byte> data);
