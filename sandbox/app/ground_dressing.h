#pragma once

#include "engine/memory/memory_map.h"
#include "engine/memory/memory_scene.h"

/// The texture definitions that a map gets which comes without any, by their index in the map.
enum class GroundKind { MEADOW, FOREST, HEATH, SCREE, ROCK, SAND, SOIL, COUNT };

/// The lowest and the highest ground.
struct HeightRange {
    int low = 0;
    int high = 0;
    int relief() const { return high - low; }
};
HeightRange rangeOf(std::span<const std::uint16_t> heights);

/// A first coat of paint that makes the shape of the points' heights readable, `edge` points a side and
/// `range` and `heightScale` world units a height unit: rock on steep ground, heath and forest on the
/// heights, meadow in the valleys. Its colours and blends are those of the definitions of dressGround, so
/// that painting blends in with it. Made by as many threads as the machine has cores.
void paintGround(MapPoints& points, int edge, const HeightRange& range, float heightScale);

/// Give a map that has no more than that coat what a designer needs to paint at once: base textures from the
/// scene (those that are named turf, crag and water, as far as they are there), a tiling that suits its size,
/// and a few texture definitions.
void dressGround(CMemoryMap& map, const CMemoryScene& scene);

/// The scene's texture of this name, or null.
qxCTexture* findTexture(const CMemoryScene& scene, const char* name);
