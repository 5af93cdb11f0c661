#include "sandbox/app/ground_dressing.h"

#include "engine/qx_texture.h"
#include "sandbox/app/value_noise.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <thread>
#include <vector>

namespace {

// The widest vectors that the machine has, where it has wide ones.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && !defined(__SANITIZE_ADDRESS__)
#define VECTORISED [[gnu::target_clones("arch=x86-64-v3", "default")]]
#else
#define VECTORISED
#endif

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

/// The ground of a definition where its two tints are mixed by `grain`, and the textures by `patch`.
template <GroundKind KIND> GroundSurface surfaceOf(float grain, float patch) {
    constexpr qxCMapMultiTexture DEFINITION = DEFINITIONS[static_cast<std::size_t>(KIND)];
    const auto mixed = [grain](std::uint8_t from, std::uint8_t to) {
        return static_cast<float>(from) + (static_cast<float>(to) - static_cast<float>(from)) * grain;
    };
    return {mixed(DEFINITION.tint1.r, DEFINITION.tint2.r), mixed(DEFINITION.tint1.g, DEFINITION.tint2.g),
            mixed(DEFINITION.tint1.b, DEFINITION.tint2.b),
            std::clamp(DEFINITION.blend + DEFINITION.variation * (2.0F * patch - 1.0F), 0.0F, 1.0F)};
}

/// One coat of paint for a whole map, row by row. The loops are such that the compiler does several points of
/// them at a time.
class CGroundCoat {
public:
    CGroundCoat(MapPoints& points, int edge, const HeightRange& range, float heightScale)
        : m_points(points)
        , m_nEdge(edge)
        , m_fScale(heightScale)
        , m_fLow(static_cast<float>(range.low))
        , m_fSpan(static_cast<float>(std::max(range.relief(), 1))) {
        points.colours.resize(points.heights.size());
        points.blends.resize(points.heights.size());
    }

    /// The rows from `first` on up to `end`; bands of rows may be painted at the same time.
    void paint(int first, int end) {
        std::vector<float> steepness(static_cast<std::size_t>(m_nEdge));
        for (int z = first; z < end; ++z) {
            measureSteepness(z, steepness);
            for (int x = 0; x < m_nEdge; x += CValueNoise::PERIOD) {
                paintPoints(x, z, std::min(CValueNoise::PERIOD, m_nEdge - x), steepness.data() + x);
            }
        }
    }

private:
    std::size_t index(int x, int z) const {
        return static_cast<std::size_t>(z) * static_cast<std::size_t>(m_nEdge) + static_cast<std::size_t>(x);
    }

    /// Rise over run. At the map's edge the neighbour's.
    VECTORISED void measureSteepness(int z, std::vector<float>& steepness) const {
        const int last = m_nEdge - 1;
        if (last < 2) {
            return; // as level ground
        }
        const std::uint16_t* const middle = m_points.heights.data() + index(0, std::clamp(z, 1, last - 1));
        const std::uint16_t* const above = middle - m_nEdge;
        const std::uint16_t* const below = middle + m_nEdge;
        float* const steep = steepness.data();
        const float unit = m_fScale;
        for (int x = 1; x < last; ++x) {
            const float alongX = static_cast<float>(middle[x + 1]) - static_cast<float>(middle[x - 1]);
            const float alongZ = static_cast<float>(below[x]) - static_cast<float>(above[x]);
            steep[x] = std::sqrt(alongX * alongX + alongZ * alongZ) * 0.5F * unit / CMemoryMap::CELL_SIZE;
        }
        steep[0] = steep[1];
        steep[last] = steep[last - 1];
    }

    /// At most a period of the noise from x on.
    VECTORISED void paintPoints(int x, int z, int count, const float* steepness) {
        const std::uint16_t* const heights = m_points.heights.data() + index(x, z);
        qxCColour* const colours = m_points.colours.data() + index(x, z);
        std::uint16_t* const blends = m_points.blends.data() + index(x, z);
        const float* const grains = m_grain.row(z);
        const float* const patches = m_patch.row(z);
        const float* const stands = m_stand.row(z);
        const float low = m_fLow;
        const float span = m_fSpan;
        for (int i = 0; i < count; ++i) {
            const float grain = grains[i];
            const float patch = patches[i];
            // Borders are a little uneven, so that they are no contour lines.
            const float rise = (static_cast<float>(heights[i]) - low) / span + 0.16F * (patch - 0.5F);
            const float steep = steepness[i] * (0.85F + 0.3F * grain);
            GroundSurface surface = surfaceOf<GroundKind::MEADOW>(grain, patch);
            surface.approach(surfaceOf<GroundKind::FOREST>(grain, patch),
                             0.9F * smoothstep(0.1F, 0.25F, rise) * smoothstep(0.4F, 0.6F, stands[i]));
            surface.approach(surfaceOf<GroundKind::HEATH>(grain, patch),
                             0.85F * smoothstep(0.45F, 0.8F, rise));
            surface.approach(surfaceOf<GroundKind::SCREE>(grain, patch),
                             0.8F * smoothstep(0.48F, 0.70F, steep)); // from 26 degrees
            surface.approach(surfaceOf<GroundKind::ROCK>(grain, patch),
                             smoothstep(0.65F, 0.90F, steep)); // from 33 degrees
            colours[i] = {static_cast<int>(surface.red), static_cast<int>(surface.green),
                          static_cast<int>(surface.blue), 255};
            blends[i] = static_cast<std::uint16_t>(
                static_cast<int>(surface.blend * static_cast<float>(CMemoryMap::MAX_BLEND)));
        }
    }

    MapPoints& m_points;
    int m_nEdge;
    float m_fScale;
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

VECTORISED HeightRange rangeOf(std::span<const std::uint16_t> heights) {
    std::uint16_t low = heights.empty() ? std::uint16_t{0} : heights[0];
    std::uint16_t high = low;
    for (const std::uint16_t height : heights) {
        low = std::min(low, height);
        high = std::max(high, height);
    }
    return {low, high};
}

void paintGround(MapPoints& points, int edge, const HeightRange& range, float heightScale) {
    CGroundCoat coat(points, edge, range, heightScale);
    const int bands = static_cast<int>(std::clamp(std::thread::hardware_concurrency(), 1U, 16U));
    std::vector<std::jthread> others;
    for (int band = 1; band < bands; ++band) {
        others.emplace_back(
            [&coat, edge, bands, band] { coat.paint(edge * band / bands, edge * (band + 1) / bands); });
    }
    coat.paint(0, edge / bands);
}

void dressGround(CMemoryMap& map, const CMemoryScene& scene) {
    map.setTexture(qxMapLayerSmooth, findTexture(scene, "turf"));
    map.setTexture(qxMapLayerRough, findTexture(scene, "crag"));
    map.setTexture(qxMapLayerWater, findTexture(scene, "water"));
    map.setTextureTiling(std::clamp(map.getGridDim() / CELLS_A_REPEAT, 1, MAX_TILING));
    for (const qxCMapMultiTexture& definition : DEFINITIONS) {
        *map.addMultiTexture() = definition;
    }
}
