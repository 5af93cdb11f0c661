#pragma once

#include <cstddef>
#include <cstdint>

/// A view of a map's heights for picking and drawing; owns nothing and is good as long as the map lives. A
/// cell is one world unit wide.
struct HeightField {
    int gridDim = 0;                        ///< cells a side
    double heightScale = 1.0;               ///< world units per height unit
    const std::uint16_t* heights = nullptr; ///< (gridDim + 1) squared, z outer, x inner

    /// Height units; the point must be on the grid.
    int height(int x, int z) const {
        return heights[static_cast<std::size_t>(z) * (static_cast<std::size_t>(gridDim) + 1) +
                       static_cast<std::size_t>(x)];
    }
    double worldHeight(int x, int z) const { return height(x, z) * heightScale; }
};

/// Height of the drawn ground in world units at a place on the map; a place beside it counts as the nearest
/// one on its edge.
double groundHeight(const HeightField& field, double x, double z);
