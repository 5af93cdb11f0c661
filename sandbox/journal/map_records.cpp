#include "sandbox/journal/map_records.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr std::array LAYERS{qxMapLayerSmooth, qxMapLayerRough, qxMapLayerWater};

/// Records of fields without gaps: their bytes are their values, also where a number is none.
template <class Record> bool sameBytes(const std::vector<Record>& left, const std::vector<Record>& right) {
    static_assert(sizeof(qxCMapMultiTexture) == 16 && sizeof(_qxMapTerrainDef) == 144);
    return left.size() == right.size() &&
           (left.empty() || std::memcmp(left.data(), right.data(), left.size() * sizeof(Record)) == 0);
}

bool sameDetail(const qxCMapDetailRecord& left, const qxCMapDetailRecord& right) {
    return left.texture == right.texture && left.type == right.type && left.point0 == right.point0 &&
           left.point1 == right.point1 && left.point2 == right.point2 && left.scalar == right.scalar;
}

void putDefinitions(const std::vector<qxCMapMultiTexture>& definitions, CMemoryMap& map) {
    const auto count = static_cast<int>(definitions.size());
    while (map.getNumMultiTextures() > count) {
        map.removeMultiTexture(map.getNumMultiTextures() - 1);
    }
    while (map.getNumMultiTextures() < count) {
        map.addMultiTexture();
    }
    for (int i = 0; i < count; ++i) {
        *map.getMultiTexture(i) = definitions[static_cast<std::size_t>(i)];
    }
}

} // namespace

MapRecords recordsOf(CMemoryMap& map) {
    MapRecords records;
    for (int i = 0; i < map.getNumMultiTextures(); ++i) {
        records.definitions.push_back(*map.getMultiTexture(i));
    }
    for (int i = 0; i < map.getNumTerrainDefs(); ++i) {
        records.terrainTypes.push_back(*map.getTerrainDef(i));
    }
    std::ranges::transform(LAYERS, records.baseTextures.begin(),
                           [&map](qxMapLayerType layer) { return map.getTexture(layer); });
    records.tiling = map.getTextureTiling();
    records.ambient = map.getAmbient();
    records.diffuse = map.getDiffuse();
    records.checker = map.hasFlag(qxMapFlagChecker);
    records.fog = map.getScene() != nullptr && map.getScene()->getFogMode() == qxFogModeOn;
    records.waterLevel = map.waterLevel;
    return records;
}

void putRecords(const MapRecords& records, CMemoryMap& map) {
    putDefinitions(records.definitions, map);
    for (int i = 0; i < map.getNumTerrainDefs(); ++i) {
        *map.getTerrainDef(i) = records.terrainTypes[static_cast<std::size_t>(i)];
    }
    for (std::size_t i = 0; i < LAYERS.size(); ++i) {
        map.setTexture(LAYERS[i], records.baseTextures[i]);
    }
    map.setTextureTiling(records.tiling);
    map.setAmbient(records.ambient);
    map.setDiffuse(records.diffuse);
    records.checker ? map.setFlag(qxMapFlagChecker) : map.clearFlag(qxMapFlagChecker);
    if (map.getScene() != nullptr) {
        map.getScene()->setFogMode(records.fog ? qxFogModeOn : qxFogModeOff);
    }
    map.waterLevel = records.waterLevel;
    map.invalidate();
}

bool areAlike(const MapRecords& left, const MapRecords& right) {
    return sameBytes(left.definitions, right.definitions) &&
           sameBytes(left.terrainTypes, right.terrainTypes) && left.baseTextures == right.baseTextures &&
           left.tiling == right.tiling && left.ambient == right.ambient && left.diffuse == right.diffuse &&
           left.checker == right.checker && left.fog == right.fog && left.waterLevel == right.waterLevel;
}

DetailChange takeChange(std::vector<qxCMapDetailRecord>& was, const CDetailList& details) {
    const auto before = static_cast<int>(was.size());
    const int after = details.size();
    const int shorter = std::min(before, after);
    int first = 0;
    while (first < shorter && sameDetail(was[static_cast<std::size_t>(first)], details[first])) {
        ++first;
    }
    int last = 0; // alike from the end
    while (last < shorter - first &&
           sameDetail(was[static_cast<std::size_t>(before - 1 - last)], details[after - 1 - last])) {
        ++last;
    }
    DetailChange change{first, {}, {}};
    if (first == before - last && first == after - last) {
        return change;
    }
    change.before.assign(was.begin() + first, was.end() - last);
    for (int i = first; i < after - last; ++i) {
        change.after.push_back(details[i]);
        change.after.back().highlighted = 0;
    }
    was.erase(was.begin() + first, was.end() - last);
    was.insert(was.begin() + first, change.after.begin(), change.after.end());
    return change;
}
