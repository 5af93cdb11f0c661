#include "engine/memory/map/water_fill.h"

#include <vector>

namespace {

constexpr std::uint8_t WATER = 1;
constexpr std::uint8_t VISITED = 2;

// Points x0 to x1 of row z, both ends included.
struct Run {
    int z;
    int x0;
    int x1;
};

// The area of open points that are joined side by side to the start, as runs. `close(x, z)` must make a point
// count as no longer open.
template <class IsOpen, class Close> std::vector<Run> takeJoined(int x, int z, IsOpen isOpen, Close close) {
    std::vector<Run> area;
    const auto takeRunThrough = [&](int middle, int row) {
        Run run = {row, middle, middle};
        while (isOpen(run.x0 - 1, row)) {
            --run.x0;
        }
        while (isOpen(run.x1 + 1, row)) {
            ++run.x1;
        }
        for (int at = run.x0; at <= run.x1; ++at) {
            close(at, row);
        }
        area.push_back(run);
        return run.x1;
    };
    if (isOpen(x, z)) {
        takeRunThrough(x, z);
    }
    for (std::size_t i = 0; i < area.size(); ++i) {
        const Run run = area[i];
        for (const int row : {run.z - 1, run.z + 1}) {
            for (int at = run.x0; at <= run.x1; ++at) {
                if (isOpen(at, row)) {
                    at = takeRunThrough(at, row);
                }
            }
        }
    }
    return area;
}

} // namespace

void floodWater(const CPointLayer<std::uint16_t>& heights, CPointLayer<std::uint8_t>& water, int x, int z,
                int level, CGridRegion& changes) {
    // The walk goes through water that stands already: low ground behind it may have been dug since.
    const auto isOpen = [&](int px, int pz) {
        return heights.contains(px, pz) && heights.at(px, pz) <= level && (water.at(px, pz) & VISITED) == 0;
    };
    const auto visit = [&](int px, int pz) {
        water.keep(px, pz);
        water.at(px, pz) |= VISITED;
    };
    for (const Run& run : takeJoined(x, z, isOpen, visit)) {
        for (int px = run.x0; px <= run.x1; ++px) {
            if ((water.at(px, run.z) & WATER) == 0) {
                changes.add(px, run.z);
            }
            water.at(px, run.z) = WATER;
        }
    }
}

void drainWater(CPointLayer<std::uint8_t>& water, int x, int z, CGridRegion& changes) {
    const auto isOpen = [&](int px, int pz) { return water.contains(px, pz) && water.at(px, pz) != 0; };
    takeJoined(x, z, isOpen, [&](int px, int pz) {
        water.keep(px, pz);
        water.at(px, pz) = 0;
        changes.add(px, pz);
    });
}
