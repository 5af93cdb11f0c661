#pragma once

#include "engine/memory/memory_map.h"
#include "engine/memory/memory_scene.h"

#include <array>
#include <span>
#include <vector>

/// All of a map and its scene that an editor changes beside the points and the details.
struct MapRecords {
    std::vector<qxCMapMultiTexture> definitions;
    std::vector<_qxMapTerrainDef> terrainTypes;
    std::array<qxCTexture*, 3> baseTextures{}; ///< smooth, rough, water
    int tiling = 1;
    qxCColour ambient;
    qxCColour diffuse;
    bool checker = false;
    bool fog = false;
    float waterLevel = 0.0F;
};

MapRecords recordsOf(CMemoryMap& map);
void putRecords(const MapRecords& records, CMemoryMap& map);
/// To the bit.
bool areAlike(const MapRecords& left, const MapRecords& right);

/// A change in the list of details: where `before` stood from `first` on, `after` stands.
struct DetailChange {
    int first = 0;
    std::vector<qxCMapDetailRecord> before;
    std::vector<qxCMapDetailRecord> after;

    bool isEmpty() const { return before.empty() && after.empty(); }
    std::size_t bytes() const { return (before.capacity() + after.capacity()) * sizeof(qxCMapDetailRecord); }
};

/// What turned the details that were into those of the map; which of them are highlighted is no part of it.
/// `was` becomes what they are.
DetailChange takeChange(std::vector<qxCMapDetailRecord>& was, const CDetailList& details);
