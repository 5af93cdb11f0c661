#include "sandbox/view/marked_points.h"

std::optional<GridRect> markedPoints(const CMemoryMap& map) {
    const std::span<const qxCColour> markers = map.getMarkers();
    const int edge = map.getGridDim() + 1;
    GridRect found;
    for (int z = 0; z < edge; ++z) {
        for (int x = 0; x < edge; ++x) {
            if (markers[static_cast<std::size_t>(z) * static_cast<std::size_t>(edge) +
                        static_cast<std::size_t>(x)]
                    .a != 0) {
                found.grow(x, z);
            }
        }
    }
    return found.isEmpty() ? std::nullopt : std::optional(found);
}
