#include "engine/memory/map/water_fill.h"

#include <vector>

namespace {

constexpr std::uint8_t WATER = 1;
constexpr std::uint8_t VISITED = 2;

struct GridPoint {
    int x;
    int z;
};

// Every point that is joined to the start and that `enter` lets in. `enter` must refuse a point it let in
// before.
template <class Enter> std::vector<GridPoint> collectJoined(GridPoint start, Enter enter) {
    std::vector<GridPoint> area;
    const auto visit = [&](int x, int z) {
        if (enter(x, z))
            area.push_back({x, z});
    };
    visit(start.x, start.z);
    for (std::size_t i = 0; i < area.size(); ++i) {
        const auto [x, z] = area[i];
        visit(x - 1, z);
        visit(x + 1, z);
        visit(x, z - 1);
        visit(x, z + 1);
    }
    return area;
}

} // namespace

void floodWater(const CPointLayer<std::uint16_t>& heights, CPointLayer<std::uint8_t>& water, int x, int z,
                int level, CGridRegion& changes) {
    // The walk goes through water that stands already: low ground behind it may have been dug since.
    const auto area = collectJoined({x, z}, [&](int px, int pz) {
        if (!heights.contains(px, pz) || heights.at(px, pz) > level || (water.at(px, pz) & VISITED) != 0)
            return false;
        water.at(px, pz) |= VISITED;
        return true;
    });
    for (const auto [px, pz] : area) {
        if ((water.at(px, pz) & WATER) == 0)
            changes.add(px, pz);
        water.at(px, pz) = WATER;
    }
}

void drainWater(CPointLayer<std::uint8_t>& water, int x, int z, CGridRegion& changes) {
    collectJoined({x, z}, [&](int px, int pz) {
        if (!water.contains(px, pz) || water.at(px, pz) == 0)
            return false;
        water.at(px, pz) = 0;
        changes.add(px, pz);
        return true;
    });
}
