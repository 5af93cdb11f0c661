#pragma once

#include "engine/memory/memory_map.h"
#include "sandbox/core/height_field.h"

#include <QOpenGLTexture>

/// The points of one map as textures of one texel a point: heights, normals, colours, blends, water and
/// markers. Only what changed is sent again. Lives as long as the renderer's context; needs it current.
class CPointTextures {
public:
    /// Make the textures for a map and send all of it.
    void create(CMemoryMap& map);
    /// Send what changed since the last call. Returns the points whose height changed, for whoever derives
    /// more from the heights.
    GridRect update(CMemoryMap& map);
    /// Make the smaller images anew that distant ground is drawn from, when points changed since the last
    /// call. Costs time in proportion to the whole map.
    void refreshMipmaps();
    bool hasStaleMipmaps() const { return m_bStaleMipmaps; }
    void destroy();

    enum class Unit { HEIGHTS, NORMALS, COLOURS, BLENDS, WATER, MARKERS, COUNT };
    /// Bind each texture to the unit of its number.
    void bind();

private:
    using Texture = std::unique_ptr<QOpenGLTexture>;

    Texture& at(Unit unit) { return m_textures[static_cast<std::size_t>(unit)]; }
    void sendHeights(const CMemoryMap& map, const GridRect& points);
    void sendSurface(const CMemoryMap& map, const GridRect& points);
    void sendMarkers(const CMemoryMap& map, const GridRect& points);

    std::array<Texture, static_cast<std::size_t>(Unit::COUNT)> m_textures;
    bool m_bStaleMipmaps = false;
};

/// The heights of a map for picking and drawing.
HeightField heightFieldOf(const CMemoryMap& map);
