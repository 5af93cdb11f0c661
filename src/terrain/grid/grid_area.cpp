#include "terrain/grid/grid_area.h"

#include "engine/qx_map.h"

#include <algorithm>

namespace {

// More than any brush reaches past the cell it works on.
constexpr std::int64_t EDGE_MARGIN = 16;

int clampTo(std::int64_t value, std::int64_t low, std::int64_t high) {
    return static_cast<int>(std::clamp(value, low, high));
}

GridArea clip(std::int64_t x0, std::int64_t z0, std::int64_t x1, std::int64_t z1, std::int64_t first,
              std::int64_t last) {
    // An area wholly outside stays empty: its last bound is held below the range, or its first above.
    return {clampTo(x0, first, last + 1), clampTo(z0, first, last + 1), clampTo(x1, first - 1, last),
            clampTo(z1, first - 1, last)};
}

} // namespace

std::size_t GridArea::pointCount() const {
    if (isEmpty()) {
        return 0;
    }
    return static_cast<std::size_t>(x1 - x0 + 1) * static_cast<std::size_t>(z1 - z0 + 1);
}

GridArea areaOnGrid(const qxCMap& map, std::int64_t x0, std::int64_t z0, std::int64_t x1, std::int64_t z1) {
    return clip(x0, z0, x1, z1, 0, map.getGridDim());
}

GridArea areaNearGrid(const qxCMap& map, std::int64_t x0, std::int64_t z0, std::int64_t x1, std::int64_t z1) {
    return clip(x0, z0, x1, z1, -EDGE_MARGIN, map.getGridDim() + EDGE_MARGIN);
}
