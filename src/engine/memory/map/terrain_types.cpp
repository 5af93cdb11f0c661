#include "engine/memory/map/terrain_types.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <string_view>
#include <type_traits>

namespace {

using Filter = std::array<float, std::extent_v<decltype(_qxMapTerrainDef::filter)>>;

// All are symmetric, so columns and rows read alike.
constexpr Filter NARROW = {0, 0, 0, 0, 0, //
                           0, 1, 2, 1, 0, //
                           0, 2, 8, 2, 0, //
                           0, 1, 2, 1, 0, //
                           0, 0, 0, 0, 0};
constexpr Filter BINOMIAL = {1, 4,  6,  4,  1, //
                             4, 16, 24, 16, 4, //
                             6, 24, 36, 24, 6, //
                             4, 16, 24, 16, 4, //
                             1, 4,  6,  4,  1};
constexpr Filter FLAT = {1, 1, 1, 1, 1, //
                         1, 1, 1, 1, 1, //
                         1, 1, 1, 1, 1, //
                         1, 1, 1, 1, 1, //
                         1, 1, 1, 1, 1};
constexpr Filter CROSS = {0, 0, 1, 0, 0, //
                          0, 0, 2, 0, 0, //
                          1, 2, 4, 2, 1, //
                          0, 0, 2, 0, 0, //
                          0, 0, 1, 0, 0};

_qxMapTerrainDef makeType(std::string_view name, const Filter& filter, float noise, float effectOnNeighbours,
                          bool preserveFlatAreas) {
    _qxMapTerrainDef type;
    std::ranges::copy(name, type.name);
    std::ranges::copy(filter, type.filter);
    type.weighting = std::accumulate(filter.begin(), filter.end(), 0.0F);
    type.noise = noise;
    type.effectOnNeighbours = effectOnNeighbours;
    type.preserveFlatAreas = preserveFlatAreas;
    return type;
}

} // namespace

std::vector<_qxMapTerrainDef> makeDefaultTerrainTypes() {
    return {
        makeType("Grassland", BINOMIAL, 0.5F, 0.5F, true), makeType("Rock", NARROW, 4.0F, 0.2F, false),
        makeType("Sand", FLAT, 0.2F, 0.8F, false),         makeType("Snow", FLAT, 0.1F, 1.0F, false),
        makeType("Forest floor", CROSS, 1.5F, 0.4F, true),
    };
}
