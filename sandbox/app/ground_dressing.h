#pragma once

#include "engine/memory/memory_map.h"
#include "engine/memory/memory_scene.h"

/// The texture definitions that a map gets which comes without any, by their index in the map.
enum class EGround { meadow, forest, heath, scree, rock, sand, soil, count };

/// Smoothly varying value in 0 to 1 with features about `size` cells wide, the same for the same arguments.
float unevenness(float x, float z, float size);

/// 0 below `from`, 1 above `to`, an S-shaped way between them. `from` is less than `to`.
float softStep(float from, float to, float value);

/// Give a map that has heights alone what a designer needs to paint at once: base textures from the scene
/// (those that are named turf, crag and water, as far as they are there), a tiling that suits its size, and a
/// few texture definitions; and a first coat of paint that makes its shape readable, rock on steep ground,
/// heath and forest on the heights, meadow in the valleys. The coat is painted as the Paint tool does it.
void dressGround(CMemoryMap& map, const CMemoryScene& scene);

/// Paint one definition over the whole map. `weightAt(x, z)` is 0 for none to 1 for nothing else.
template <class Weight> void paintGround(CMemoryMap& map, EGround ground, Weight weightAt) {
    const int current = map.getCurrentMultiTexture();
    map.setCurrentMultiTexture(static_cast<int>(ground));
    for (int z = 0; z <= map.getGridDim(); ++z) {
        for (int x = 0; x <= map.getGridDim(); ++x) {
            map.paintMultiTexture(x, z, weightAt(x, z));
        }
    }
    map.setCurrentMultiTexture(current);
}
