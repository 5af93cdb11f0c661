#pragma once

#include "engine/qx_map_records.h"

#include <array>

/// The ground that a texture definition describes, place by place: a blend and a tint colour, both mixed over
/// a pattern of 256 x 256 texels from 9 x 9 nodes of fixed random values, bilinear in between. The tint nodes
/// come from seed 123, the blend nodes from seed 345, row by row of x, so that the pattern of a definition is
/// the same at every look and the same as in a preview drawn from these seeds.
///
/// On the map the pattern lies like the base textures: its 256 texels span one repeat of the texture. Where
/// that would put more than one node spacing between neighbouring points, the pattern is stretched to one
/// node spacing per point, so that a variation never drowns in the tiling.
class CSurfacePattern {
public:
    static constexpr int EDGE = 256;   ///< texels along one side
    static constexpr int NODES = 9;    ///< nodes along one side
    static constexpr int SPACING = 32; ///< texels from node to node

    struct Sample {
        float blend = 0.0F; ///< 0.0 to 1.0
        qxCColour tint;
    };

    /// The texel column (or row) under point coordinate `point` of a map of `gridDim` cells a side whose
    /// textures repeat `tiling` times over it.
    static int texelAt(int point, int gridDim, int tiling);

    /// What `definition` has at a texel, both coordinates 0 to EDGE - 1. Keeps the nodes of the last
    /// definition seen, compared by value.
    Sample sample(const qxCMapMultiTexture& definition, int texelX, int texelZ);

private:
    void build(const qxCMapMultiTexture& definition);

    bool m_bBuilt = false;
    qxCMapMultiTexture m_definition;
    std::array<std::array<qxCColour, NODES>, NODES> m_tints;
    std::array<std::array<float, NODES>, NODES> m_blends = {};
};
