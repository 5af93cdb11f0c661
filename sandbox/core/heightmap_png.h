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

/// Bits a pixel of a heightmap file; with 8 its heights reach to 255.
enum class HeightmapBits { EIGHT = 8, SIXTEEN = 16 };

/// Highest height that a file of so many bits holds.
constexpr int highestHeight(HeightmapBits bits) {
    return bits == HeightmapBits::EIGHT ? 0xFF : 0xFFFF;
}

/// Decode a whole PNG file held in memory: grey, 8 or 16 bits a pixel, without alpha. A pixel is a point and
/// its value a height. Of a picture that is not square the largest square in the middle is taken. Every size
/// is checked against the limits and against the length of the file before memory is taken for it; a file
/// that is cut short or damaged anywhere is refused. Throws std::bad_alloc.
HeightmapReading decodeHeightmap(std::span<const std::uint8_t> file);

/// The heights, `edge` times `edge`, as a grey PNG file, or nothing when libpng gives up (out of memory).
/// None may be above highestHeight(bits).
std::optional<std::vector<std::uint8_t>> encodeHeightmap(int edge, std::span<const std::uint16_t> heights,
                                                         HeightmapBits bits);
