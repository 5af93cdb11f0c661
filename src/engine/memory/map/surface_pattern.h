#pragma once

#include "engine/qx_map_records.h"
#include "engine/qx_surface_recipe.h"

/// The ground of one map's texture definitions, place by place, as qx_surface makes it.
///
/// On the map the pattern lies like the base textures: its 256 texels span one repeat of the texture. Where
/// that would put more than one node spacing between neighbouring points, the pattern is stretched to one
/// node spacing per point, so that a variation never drowns in the tiling.
class CSurfacePattern {
public:
    struct Sample {
        float blend = 0.0F; ///< 0.0 to 1.0
        qxCColour tint;
    };

    /// The texel column (or row) under point coordinate `point` of a map of `gridDim` cells a side whose
    /// textures repeat `tiling` times over it.
    static int texelAt(int point, int gridDim, int tiling);

    /// What `definition` has at a texel, both coordinates 0 to qx_surface::EDGE - 1. Keeps the nodes of the
    /// last definition seen, compared by value.
    Sample sample(const qxCMapMultiTexture& definition, int texelX, int texelZ);

private:
    bool m_bBuilt = false;
    qxCMapMultiTexture m_definition;
    qx_surface::NodeGrid<qxCColour> m_tints;
    qx_surface::NodeGrid<float> m_blends = {};
};
