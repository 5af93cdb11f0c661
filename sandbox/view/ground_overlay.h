#pragma once

#include "engine/memory/memory_map.h"
#include "sandbox/core/height_field.h"
#include "sandbox/view/thick_lines.h"

#include <span>

/// Draws the edit cursors on the ground: bright lines with a dark border, so that they show on every ground,
/// over a light veil. Lives as long as the renderer's context; needs it current.
class CGroundOverlay {
public:
    void create() { m_lines.create(); }
    void destroy() { m_lines.destroy(); }
    /// Draw the marks over what is drawn already. `pixelRatio` is physical pixels per line-width unit.
    void draw(const HeightField& field, std::span<const EditCursor> cursors, const QMatrix4x4& worldToClip,
              QSize viewPixels, double pixelRatio);

private:
    void addFan(const HeightField& field, const EditCursor& cursor);
    void addLines(const HeightField& field, const EditCursor& cursor, CThickLines::Colour colour);

    CThickLines m_lines;
};
