// Decodes any bytes as a heightmap. What is taken must be a whole square map within the limits that comes
// back the same from being saved; what is refused must say why.
#include "sandbox/core/heightmap_png.h"

#include <cstdlib>

namespace {

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

void checkMap(const HeightmapReading& reading) {
    const Heightmap& map = reading.map;
    require(map.edge >= 2 && map.edge <= HEIGHTMAP_MAX_EDGE);
    require(map.heights.size() == static_cast<std::size_t>(map.edge) * static_cast<std::size_t>(map.edge));
    constexpr int SMALL = 64; // saving a larger one would take the time from other inputs
    if (map.edge <= SMALL) {
        const auto saved = encodeHeightmap(map.edge, map.heights, HeightmapBits::SIXTEEN);
        require(saved.has_value() && decodeHeightmap(*saved).map.heights == map.heights);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const HeightmapReading reading = decodeHeightmap({data, size});
    if (reading.error.empty()) {
        checkMap(reading);
    } else {
        require(reading.map.heights.empty());
    }
    return 0;
}
