#pragma once

class qxCMovie;
struct TimelineView;

/// What the mouse does in a timeline: the left button selects frames, the right one moves a frame or, with
/// Ctrl, duplicates it. Belongs to a timeline; the movie and the view are handed to each call, `x` in pixels
/// from the left edge of the client area, as far outside as the captured mouse goes. Nothing here is recorded
/// for undo.
class CTimelineDrag {
public:
    enum class Mode { NONE = 0, SELECT = 1, MOVE_FRAME = 2, DUPLICATE_FRAME = 3 };

    Mode mode() const { return m_mode; }

    void leftDown(qxCMovie& movie, const TimelineView& view, int x);
    void rightDown(qxCMovie& movie, const TimelineView& view, int x, bool ctrl);
    /// True when the panel is to be told: the selection follows the mouse, and the view the selection.
    bool move(qxCMovie& movie, TimelineView& view, int x);
    /// True when the panel is to be told: not for the button that a cancelled drag began with.
    bool leftUp(qxCMovie& movie, const TimelineView& view, int x);
    bool rightUp(qxCMovie& movie, const TimelineView& view, int x);

    /// End the drag without effect: the selection is what it was before. False when there is no drag.
    bool cancel(qxCMovie& movie);

private:
    void begin(qxCMovie& movie, const TimelineView& view, int x, Mode mode);

    Mode m_mode = Mode::NONE;
    bool m_bCancelled = false; // the button is still down
    int m_nAnchor = 0;         // frame under the pointer when the button went down
    int m_nRangeStart = 0;
    int m_nRangeEnd = 0;
};
