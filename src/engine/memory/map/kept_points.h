#pragma once

#include "engine/qx_colour.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/// A square piece of one layer of points: `width` by the rest, its first point at (x, z), rows along x.
template <class T> struct PointTile {
    int x = 0;
    int z = 0;
    int width = 0;
    std::vector<T> values;
};

/// What the points of a map were, where they have changed.
struct KeptPoints {
    std::vector<PointTile<std::uint16_t>> heights;
    std::vector<PointTile<qxCColour>> colours;
    std::vector<PointTile<std::uint16_t>> blends;
    std::vector<PointTile<std::uint8_t>> water;

    bool isEmpty() const { return heights.empty() && colours.empty() && blends.empty() && water.empty(); }
    /// Memory that the tiles take.
    std::size_t bytes() const {
        const auto bytesOf = [](const auto& tiles) {
            std::size_t sum = 0;
            for (const auto& tile : tiles) {
                sum += sizeof tile + tile.values.capacity() * sizeof tile.values[0];
            }
            return sum;
        };
        return bytesOf(heights) + bytesOf(colours) + bytesOf(blends) + bytesOf(water);
    }
};
