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

/// Decodes one image of an icon: an uncompressed bitmap of 1, 4, 8, 24 or 32 bits a pixel, bottom row first,
/// followed by its one-bit mask. A 32-bit image without any alpha takes its transparency from the mask.
/// Returns nothing when the data is damaged or larger than 256 pixels a side.
std::optional<IconImage> readIconImage(std::span<const std::byte> data);
