#pragma once

#include "sandbox/core/terrain_picker.h"
#include "sandbox/view/editor_calls.h"

#include <optional>

/// Turns what the left button does over the terrain into strokes of the map editor. Knows no window: it is
/// told where on the ground the pointer is and at what height of the screen.
class CStrokeController {
public:
    explicit CStrokeController(const EditorCalls& calls) : m_calls(calls) {}

    /// Begin a stroke at a place on the ground, the pointer at `screenY` pixels from the top. False, with
    /// nothing done, when no editor is open or the pointer is off the ground.
    bool press(const std::optional<TerrainHit>& hit, int screenY);
    /// The pointer moved. In a stroke: an update for each cell on the way there, with the drag so far, up
    /// negative, because that is what raises. A pointer that has left the ground keeps the last cell, so that
    /// a hill can be drawn up into the sky. Without a stroke: the cursor is moved, and stays where it was
    /// while the pointer is off the ground.
    void move(const std::optional<TerrainHit>& hit, int screenY);
    /// End the stroke, if there is one, where the button was released. A stroke of one click has an update
    /// there too.
    void release(const std::optional<TerrainHit>& hit, int screenY);
    /// End the stroke, if there is one, where it is.
    void end();
    /// Height units of drag for one pixel, 1 or more.
    void setUnitsPerPixel(int units) { m_nUnitsPerPixel = units; }
    /// Whether a drag up counts as one down and the other way round.
    void turnDrag(bool turned) { m_nWay = turned ? -1 : 1; }

    /// True from a press to its release, unless the panel was closed in between.
    bool isStroking();

private:
    /// A place of the stroke: cell and drag.
    struct Step {
        int x = 0;
        int z = 0;
        int amount = 0;
        friend bool operator==(const Step&, const Step&) = default;
    };

    Step stepAt(const std::optional<TerrainHit>& hit, int screenY) const;
    void drawTo(const Step& end);

    const EditorCalls& m_calls;
    bool m_bStroking = false;
    int m_nStartY = 0;
    int m_nUnitsPerPixel = 1;
    int m_nWay = 1;
    Step m_last; // where the stroke has come to
    bool m_bUpdated = false;
};
