#pragma once

#include "engine/qx_colour.h"
#include "engine/qx_random.h"

#include <algorithm>
#include <array>

/// The ground that a texture definition describes, place by place: a tint colour and a blend, both mixed over
/// a square of 256 x 256 texels from 9 x 9 nodes of random values, bilinear in between. The seeds are fixed,
/// so that a definition looks the same at every drawing and in a preview as on the map.
namespace qx_surface {

constexpr int EDGE = 256;   ///< texels along one side
constexpr int SPACING = 32; ///< texels from node to node
constexpr int CELLS = EDGE / SPACING;
constexpr int NODES = CELLS + 1; ///< nodes along one side

template <class Value> using NodeGrid = std::array<std::array<Value, NODES>, NODES>; // [column][row]

inline NodeGrid<qxCColour> makeTintNodes(const qxCColour& tint1, const qxCColour& tint2) {
    constexpr int SEED = 123;
    qxCRandom random;
    random.setSeed(SEED);
    NodeGrid<qxCColour> nodes;
    for (auto& column : nodes) {
        for (qxCColour& node : column) {
            node = interpolate(tint1, tint2, random.get(1.0F));
        }
    }
    return nodes;
}

/// `blend` give or take `variation`, held to 0.0 to 1.0; what is no number counts as 0.
inline NodeGrid<float> makeBlendNodes(float blend, float variation) {
    constexpr int SEED = 345;
    qxCRandom random;
    random.setSeed(SEED);
    NodeGrid<float> nodes;
    for (auto& column : nodes) {
        for (float& node : column) {
            const float value = blend + random.get(-variation, variation);
            node = value > 0.0F ? std::min(value, 1.0F) : 0.0F;
        }
    }
    return nodes;
}

inline float mix(float from, float to, float t) {
    return from + t * (to - from);
}
inline qxCColour mix(const qxCColour& from, const qxCColour& to, float t) {
    return interpolate(from, to, t);
}

/// Fraction of the way from one node to the next.
constexpr float fractionOf(int texel) {
    return static_cast<float>(texel % SPACING) / static_cast<float>(SPACING);
}

/// The nodes of column `column`, mixed at row `texelY`.
template <class Value> Value mixColumn(const NodeGrid<Value>& nodes, std::size_t column, int texelY) {
    const auto row = static_cast<std::size_t>(texelY / SPACING);
    return mix(nodes[column][row], nodes[column][row + 1], fractionOf(texelY));
}

/// The value at a texel, both coordinates 0 to EDGE - 1.
template <class Value> Value valueAt(const NodeGrid<Value>& nodes, int texelX, int texelY) {
    const auto column = static_cast<std::size_t>(texelX / SPACING);
    return mix(mixColumn(nodes, column, texelY), mixColumn(nodes, column + 1, texelY), fractionOf(texelX));
}

} // namespace qx_surface
