#pragma once

#include "engine/memory/memory_map.h"
#include "engine/memory/memory_scene.h"

/// The texture definitions that a map gets which comes without any, by their index in the map.
enum class GroundKind { MEADOW, FOREST, HEATH, SCREE, ROCK, SAND, SOIL, COUNT };

/// Give a map that has heights alone what a designer needs to paint at once: base textures from the scene
/// (those that are named turf, crag and water, as far as they are there), a tiling that suits its size, and a
/// few texture definitions; and a first coat of paint that makes its shape readable, rock on steep ground,
/// heath and forest on the heights, meadow in the valleys. The coat's colours and blends are those of the
/// definitions, so that painting blends in with it.
void dressGround(CMemoryMap& map, const CMemoryScene& scene);

/// The scene's texture of this name, or null.
qxCTexture* findTexture(const CMemoryScene& scene, const char* name);
