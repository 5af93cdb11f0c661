#include "engine/memory/map/surface_pattern.h"

#include "engine/qx_random.h"

#include <algorithm>

namespace {

constexpr int TINT_SEED = 123;
constexpr int BLEND_SEED = 345;

bool isSame(const qxCMapMultiTexture& a, const qxCMapMultiTexture& b) {
    return a.tint1 == b.tint1 && a.tint2 == b.tint2 && a.blend == b.blend && a.variation == b.variation;
}

float limited(float blend) {
    // Written so that a value that is no number becomes 0.
    return blend > 0.0F ? std::min(blend, 1.0F) : 0.0F;
}

float mix(float from, float to, float t) {
    return from + t * (to - from);
}

} // namespace

int CSurfacePattern::texelAt(int point, int gridDim, int tiling) {
    const bool isStretched = tiling * (NODES - 1) > gridDim;
    const int texel = isStretched ? point * SPACING : point * EDGE * tiling / gridDim;
    return texel % EDGE;
}

void CSurfacePattern::build(const qxCMapMultiTexture& definition) {
    qxCRandom random;
    random.setSeed(TINT_SEED);
    for (auto& row : m_tints) {
        for (qxCColour& node : row) {
            node = interpolate(definition.tint1, definition.tint2, random.get(1.0F));
        }
    }
    random.setSeed(BLEND_SEED);
    for (auto& row : m_blends) {
        for (float& node : row) {
            node = limited(definition.blend + random.get(-definition.variation, definition.variation));
        }
    }
    m_definition = definition;
    m_bBuilt = true;
}

CSurfacePattern::Sample CSurfacePattern::sample(const qxCMapMultiTexture& definition, int texelX,
                                                int texelZ) {
    if (!m_bBuilt || !isSame(definition, m_definition)) {
        build(definition);
    }
    const auto x = static_cast<std::size_t>(texelX / SPACING);
    const auto z = static_cast<std::size_t>(texelZ / SPACING);
    const float w = static_cast<float>(texelX % SPACING) / SPACING;
    const float u = static_cast<float>(texelZ % SPACING) / SPACING;
    Sample result;
    result.blend = mix(mix(m_blends[x][z], m_blends[x][z + 1], u),
                       mix(m_blends[x + 1][z], m_blends[x + 1][z + 1], u), w);
    result.tint = interpolate(interpolate(m_tints[x][z], m_tints[x][z + 1], u),
                              interpolate(m_tints[x + 1][z], m_tints[x + 1][z + 1], u), w);
    return result;
}
