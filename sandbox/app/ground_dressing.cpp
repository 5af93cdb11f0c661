#include "sandbox/app/ground_dressing.h"

#include "engine/qx_texture.h"
#include "sandbox/app/value_noise.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace {

constexpr int CELLS_A_REPEAT = 10; // over how many cells a base texture stretches
constexpr int MAX_TILING = 256;

/// In the order of GroundKind. Both base textures are pale, so the tints are the colours that the ground
/// takes.
constexpr std::array<qxCMapMultiTexture, static_cast<std::size_t>(GroundKind::COUNT)> DEFINITIONS{{
    {{158, 166, 104, 255}, {128, 142, 80, 255}, 0.05F, 0.1F}, // meadow
    {{100, 116, 72, 255}, {78, 94, 56, 255}, 0.1F, 0.1F},     // forest
    {{192, 176, 112, 255}, {162, 154, 92, 255}, 0.2F, 0.2F},  // heath
    {{176, 164, 142, 255}, {152, 142, 122, 255}, 0.6F, 0.3F}, // scree
    {{164, 154, 144, 255}, {138, 130, 124, 255}, 1.0F, 0.1F}, // rock
    {{240, 220, 166, 255}, {222, 198, 144, 255}, 0.0F, 0.0F}, // sand
    {{156, 120, 84, 255}, {128, 94, 62, 255}, 0.3F, 0.2F},    // soil
}};

/// Surface of one point: colour channels 0 to 255, blend 0 to 1.
struct GroundSurface {
    float red;
    float green;
    float blue;
    float blend;

    void approach(const GroundSurface& other, float way) {
        red += (other.red - red) * way;
        green += (other.green - green) * way;
        blue += (other.blue - blue) * way;
        blend += (other.blend - blend) * way;
    }
};

/// One coat of paint for a whole map. Lives for one pass.
class CGroundCoat {
public:
    explicit CGroundCoat(CMemoryMap& map)
        : m_map(map), m_pHeights(map.getHeights().data()), m_nDim(map.getGridDim()) {
        const auto [low, high] = std::ranges::minmax(map.getHeights());
        m_fLow = static_cast<float>(low);
        m_fSpan = static_cast<float>(std::max(high - low, 1));
    }

    void paint() {
        for (int z = 0; z <= m_nDim; ++z) {
            for (int x = 0; x <= m_nDim; ++x) {
                paintPoint(x, z);
            }
        }
    }

private:
    float height(int x, int z) const {
        return static_cast<float>(
            m_pHeights[static_cast<std::size_t>(z) * static_cast<std::size_t>(m_nDim + 1) +
                       static_cast<std::size_t>(x)]);
    }

    /// Rise over run. At the map's edge the neighbour's.
    float steepness(int x, int z) const {
        if (m_nDim < 2) {
            return 0.0F;
        }
        const int column = std::clamp(x, 1, m_nDim - 1);
        const int row = std::clamp(z, 1, m_nDim - 1);
        const float alongX = height(column + 1, row) - height(column - 1, row);
        const float alongZ = height(column, row + 1) - height(column, row - 1);
        return std::sqrt(alongX * alongX + alongZ * alongZ) * 0.5F * m_map.heightScale /
               CMemoryMap::CELL_SIZE;
    }

    static GroundSurface surfaceOf(GroundKind ground, float grain, float patch) {
        const qxCMapMultiTexture& definition = DEFINITIONS[static_cast<std::size_t>(ground)];
        const auto mixed = [grain](std::uint8_t from, std::uint8_t to) {
            return static_cast<float>(from) + (static_cast<float>(to) - static_cast<float>(from)) * grain;
        };
        return {mixed(definition.tint1.r, definition.tint2.r), mixed(definition.tint1.g, definition.tint2.g),
                mixed(definition.tint1.b, definition.tint2.b),
                std::clamp(definition.blend + definition.variation * (2.0F * patch - 1.0F), 0.0F, 1.0F)};
    }

    void paintPoint(int x, int z) {
        const float grain = m_grain.at(x, z);
        const float patch = m_patch.at(x, z);
        // Borders are a little uneven, so that they are no contour lines.
        const float rise = (height(x, z) - m_fLow) / m_fSpan + 0.16F * (patch - 0.5F);
        const float steep = steepness(x, z) * (0.85F + 0.3F * grain);
        GroundSurface surface = surfaceOf(GroundKind::MEADOW, grain, patch);
        const auto cover = [&](GroundKind ground, float weight) {
            if (weight > 0.0F) {
                surface.approach(surfaceOf(ground, grain, patch), weight);
            }
        };
        cover(GroundKind::FOREST,
              0.9F * smoothstep(0.1F, 0.25F, rise) * smoothstep(0.4F, 0.6F, m_stand.at(x, z)));
        cover(GroundKind::HEATH, 0.85F * smoothstep(0.45F, 0.8F, rise));
        cover(GroundKind::SCREE, 0.8F * smoothstep(0.48F, 0.70F, steep)); // from 26 degrees
        cover(GroundKind::ROCK, smoothstep(0.65F, 0.90F, steep));         // from 33 degrees
        m_map.setPointColour(0, x, z,
                             {static_cast<int>(surface.red), static_cast<int>(surface.green),
                              static_cast<int>(surface.blue), 255});
        m_map.setPointBlend(1, x, z, static_cast<int>(surface.blend * CMemoryMap::MAX_BLEND));
    }

    CMemoryMap& m_map;
    const std::uint16_t* m_pHeights;
    int m_nDim;
    float m_fLow;
    float m_fSpan;
    CValueNoise m_grain{4};
    CValueNoise m_patch{16};
    CValueNoise m_stand{32}; // of trees
};

} // namespace

qxCTexture* findTexture(const CMemoryScene& scene, const char* name) {
    for (int i = 0; i < scene.getNumTextures(); ++i) {
        if (std::strcmp(scene.getTexture(i)->name.getString(), name) == 0) {
            return scene.getTexture(i);
        }
    }
    return nullptr;
}

void dressGround(CMemoryMap& map, const CMemoryScene& scene) {
    map.setTexture(qxMapLayerSmooth, findTexture(scene, "turf"));
    map.setTexture(qxMapLayerRough, findTexture(scene, "crag"));
    map.setTexture(qxMapLayerWater, findTexture(scene, "water"));
    map.setTextureTiling(std::clamp(map.getGridDim() / CELLS_A_REPEAT, 1, MAX_TILING));
    for (const qxCMapMultiTexture& definition : DEFINITIONS) {
        *map.addMultiTexture() = definition;
    }
    CGroundCoat(map).paint();
}
