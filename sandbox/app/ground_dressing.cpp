#include "sandbox/app/ground_dressing.h"

#include "engine/qx_texture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace {

constexpr int CELLS_A_REPEAT = 10; // over how many cells a base texture stretches
constexpr int MAX_TILING = 256;

/// In the order of EGround. Smooth ground is pale, so the tints are the colours that it takes.
constexpr std::array<qxCMapMultiTexture, static_cast<std::size_t>(EGround::count)> DEFINITIONS{{
    {{158, 166, 104, 255}, {128, 142, 80, 255}, 0.05F, 0.1F}, // meadow
    {{100, 116, 72, 255}, {78, 94, 56, 255}, 0.1F, 0.1F},     // forest
    {{192, 176, 112, 255}, {162, 154, 92, 255}, 0.2F, 0.2F},  // heath
    {{176, 164, 142, 255}, {152, 142, 122, 255}, 0.6F, 0.3F}, // scree
    {{164, 154, 144, 255}, {138, 130, 124, 255}, 1.0F, 0.1F}, // rock
    {{240, 220, 166, 255}, {222, 198, 144, 255}, 0.0F, 0.0F}, // sand
    {{156, 120, 84, 255}, {128, 94, 62, 255}, 0.3F, 0.2F},    // soil
}};

/// The same number in 0 to 1 for the same corner of the lattice.
float latticeValue(int x, int z) {
    auto bits = static_cast<std::uint32_t>(x) * 0x9E3779B1U ^ static_cast<std::uint32_t>(z) * 0x85EBCA77U;
    bits = (bits ^ (bits >> 15)) * 0x2C1B3C6DU;
    bits = (bits ^ (bits >> 12)) * 0x297A2D39U;
    constexpr float LARGEST = 16777215.0F;
    return static_cast<float>((bits ^ (bits >> 15)) & 0xFFFFFFU) / LARGEST;
}

qxCTexture* findTexture(const CMemoryScene& scene, const char* name) {
    for (int i = 0; i < scene.getNumTextures(); ++i) {
        if (std::strcmp(scene.getTexture(i)->name.getString(), name) == 0) {
            return scene.getTexture(i);
        }
    }
    return nullptr;
}

/// What the coat of paint goes by at each point.
class CRelief {
public:
    explicit CRelief(const CMemoryMap& map) : m_map(map) {
        const auto [low, high] = std::ranges::minmax(map.getHeights());
        m_fLow = static_cast<float>(low);
        m_fSpan = static_cast<float>(std::max(high - low, 1));
    }

    /// Degrees, a little uneven so that borders are no contour lines.
    float slope(int x, int z) const { return m_map.getGradient(x, z) + 6.0F * (roughly(x, z, 5.0F) - 0.5F); }
    /// 0 on the lowest ground to 1 on the highest, uneven likewise.
    float rise(int x, int z) const {
        const float height = static_cast<float>(m_map.getPointHeight(x, z)) - m_fLow;
        return height / m_fSpan + 0.16F * (roughly(x, z, 14.0F) - 0.5F);
    }

private:
    static float roughly(int x, int z, float size) {
        return unevenness(static_cast<float>(x), static_cast<float>(z), size);
    }

    const CMemoryMap& m_map;
    float m_fLow = 0.0F;
    float m_fSpan = 1.0F;
};

void paintRelief(CMemoryMap& map) {
    const CRelief relief(map);
    paintGround(map, EGround::meadow, [](int, int) { return 1.0F; });
    paintGround(map, EGround::forest, [&](int x, int z) {
        const float wood = unevenness(static_cast<float>(x), static_cast<float>(z), 22.0F);
        return 0.9F * softStep(0.1F, 0.25F, relief.rise(x, z)) * softStep(0.4F, 0.6F, wood);
    });
    paintGround(map, EGround::heath,
                [&](int x, int z) { return 0.85F * softStep(0.45F, 0.8F, relief.rise(x, z)); });
    paintGround(map, EGround::scree,
                [&](int x, int z) { return 0.8F * softStep(25.0F, 35.0F, relief.slope(x, z)); });
    paintGround(map, EGround::rock, [&](int x, int z) { return softStep(33.0F, 42.0F, relief.slope(x, z)); });
}

} // namespace

float unevenness(float x, float z, float size) {
    const float u = x / size;
    const float v = z / size;
    const auto column = static_cast<int>(std::floor(u));
    const auto row = static_cast<int>(std::floor(v));
    const float alongU = softStep(0.0F, 1.0F, u - static_cast<float>(column));
    const float alongV = softStep(0.0F, 1.0F, v - static_cast<float>(row));
    const float above = std::lerp(latticeValue(column, row), latticeValue(column + 1, row), alongU);
    const float below = std::lerp(latticeValue(column, row + 1), latticeValue(column + 1, row + 1), alongU);
    return std::lerp(above, below, alongV);
}

float softStep(float from, float to, float value) {
    const float way = std::clamp((value - from) / (to - from), 0.0F, 1.0F);
    return way * way * (3.0F - 2.0F * way);
}

void dressGround(CMemoryMap& map, const CMemoryScene& scene) {
    map.setTexture(qxMapLayerSmooth, findTexture(scene, "turf"));
    map.setTexture(qxMapLayerRough, findTexture(scene, "crag"));
    map.setTexture(qxMapLayerWater, findTexture(scene, "water"));
    map.setTextureTiling(std::clamp(map.getGridDim() / CELLS_A_REPEAT, 1, MAX_TILING));
    for (const qxCMapMultiTexture& definition : DEFINITIONS) {
        *map.addMultiTexture() = definition;
    }
    paintRelief(map);
}
