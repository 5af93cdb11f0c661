#pragma once

#include <cstdint>
#include <span>

class qxCImageFile;

/// Compose what an image preview shows: `image`, repeated `tilesX` by `tilesY` times over `width` by `height`
/// pixels (the nearest source pixel above and left, no smoothing), blended by its alpha over squares of 16
/// pixels, black at the top left, then white. `picture` takes width * height pixels as 0xFFRRGGBB, rows from
/// the top. False, and the picture untouched, when the image has no pixels.
bool composePreview(std::span<std::uint32_t> picture, int width, int height, const qxCImageFile& image,
                    int tilesX, int tilesY);
