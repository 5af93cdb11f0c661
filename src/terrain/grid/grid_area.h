#pragma once

#include <cstddef>
#include <cstdint>

class qxCMap;

/// A rectangle of grid points, all bounds inclusive; empty where a last is below its first.
struct GridArea {
    int x0 = 0;
    int z0 = 0;
    int x1 = -1;
    int z1 = -1;

    bool isEmpty() const { return x1 < x0 || z1 < z0; }
    std::size_t pointCount() const;

    friend bool operator==(const GridArea&, const GridArea&) = default;
};

/// The points of x0..x1 by z0..z1 that lie on the grid of `map`.
GridArea areaOnGrid(const qxCMap& map, std::int64_t x0, std::int64_t z0, std::int64_t x1, std::int64_t z1);

/// The points of x0..x1 by z0..z1 on the grid of `map` or within a few points around it. Work over an area
/// that the host gave goes through here: the engine ignores points beyond the grid, so what a brush reaches
/// past the edge is passed on as it is, and a corner millions of points away costs no time.
GridArea areaNearGrid(const qxCMap& map, std::int64_t x0, std::int64_t z0, std::int64_t x1, std::int64_t z1);
