#pragma once

#include "engine/memory/memory_map.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

/// Most points a side that a heightmap file may have: as many as a map holds.
inline constexpr int HEIGHTMAP_MAX_EDGE = CMemoryMap::MAX_GRID_DIM + 1;
/// Largest heightmap file that is read, in bytes: a 16-bit picture of the largest size, stored uncompressed,
/// with room to spare.
inline constexpr std::int64_t HEIGHTMAP_MAX_FILE_SIZE = 256LL * 1024 * 1024;

/// A square heightfield of `edge` points a side, rows from the north (z outer, x inner), in height units.
struct Heightmap {
    int edge = 0;
    std::vector<std::uint16_t> heights;
};

/// What came of decoding a heightmap picture: the map, or the reason why there is none.
struct HeightmapReading {
    Heightmap map;
    int pictureWidth = 0;  ///< pixels, before the square was taken
    int pictureHeight = 0; ///< pixels, before the square was taken
    int pictureBits = 0;   ///< bits a pixel, 8 or 16
    std::string error;     ///< empty when `map` is good; a clause without a full stop otherwise

    bool isCropped() const { return pictureWidth != pictureHeight; }
};

/// Decode a whole PNG file held in memory: grey, 8 or 16 bits a pixel, without alpha. A pixel is a point and
/// its value a height. Of a picture that is not square the largest square in the middle is taken. Every size
/// is checked against the limits and against the length of the file before memory is taken for it; a file
/// that is cut short or damaged anywhere is refused.
HeightmapReading decodeHeightmap(std::span<const std::uint8_t> file);

/// The map as a 16-bit grey PNG file, or nothing when libpng gives up (out of memory).
std::optional<std::vector<std::uint8_t>> encodeHeightmap(const Heightmap& map);
