#include "engine/memory/map/surface_pattern.h"

namespace {

bool isSame(const qxCMapMultiTexture& a, const qxCMapMultiTexture& b) {
    return a.tint1 == b.tint1 && a.tint2 == b.tint2 && a.blend == b.blend && a.variation == b.variation;
}

} // namespace

int CSurfacePattern::texelAt(int point, int gridDim, int tiling) {
    const bool isStretched = tiling * qx_surface::CELLS > gridDim;
    const int texel = isStretched ? point * qx_surface::SPACING : point * qx_surface::EDGE * tiling / gridDim;
    return texel % qx_surface::EDGE;
}

CSurfacePattern::Sample CSurfacePattern::sample(const qxCMapMultiTexture& definition, int texelX,
                                                int texelZ) {
    if (!m_bBuilt || !isSame(definition, m_definition)) {
        m_tints = qx_surface::makeTintNodes(definition.tint1, definition.tint2);
        m_blends = qx_surface::makeBlendNodes(definition.blend, definition.variation);
        m_definition = definition;
        m_bBuilt = true;
    }
    return {qx_surface::valueAt(m_blends, texelX, texelZ), qx_surface::valueAt(m_tints, texelX, texelZ)};
}
