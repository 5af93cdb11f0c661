#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

class qxCMovie;

/// Which frames a timeline shows, and how wide: one column a frame. Pixels of the client area from its left
/// edge.
struct TimelineView {
    static constexpr int WIDEST_FRAME = 64;

    int clientWidth = 0;
    int clientHeight = 0;
    int frameWidth = 1; ///< 1, 2, 4 and so on up to WIDEST_FRAME
    int firstFrame = 0; ///< in the leftmost column; may be outside the movie, where nothing is shown

    /// Set the width to the largest power of two that is not above `pixels`, 1 to WIDEST_FRAME.
    void setFrameWidth(int pixels);
    /// The frame under a point; truncating, so left of the client area it counts back from the first frame.
    int frameAt(int x) const;
    int wholeColumns() const { return clientWidth / frameWidth; }
    /// Move the first frame by as little as brings `frame` among the whole columns. True when it moved.
    bool ensureVisible(int frame);
    /// Scroll by so many frames, held to those of the movie as the scroll bar is. True when it moved.
    bool scrollBy(int frames, int movieFrames);
    /// Twice or half the frame width, so that the frame under `x` stays there as far as frame 0 stays the
    /// first of all. True when anything changed.
    bool zoomAbout(int x, bool closer);
};

/// What a column shows. Columns that show the same are equal.
struct TimelineColumn {
    std::uint32_t background = 0xFF000000U; ///< 0xFFRRGGBB, as the next two
    std::uint32_t key = 0xFF000000U;
    std::uint32_t sound = 0xFF000000U; ///< the background's where nothing sounds
    std::int16_t fadeRows = -1;        ///< dark rows above the light ones; -1: not faded
    bool trigger = false;
    bool frame = false; ///< of the movie; otherwise the column is black

    friend bool operator==(const TimelineColumn&, const TimelineColumn&) = default;
};

/// Read what each column of the view shows, from left to right: of a frame no more than is shown of it.
void readTimeline(std::vector<TimelineColumn>& columns, const TimelineView& view, qxCMovie& movie);
/// Draw the columns into `pixels`, clientWidth * clientHeight of them as 0xFFRRGGBB, rows from the top.
void drawTimeline(std::span<std::uint32_t> pixels, const TimelineView& view,
                  std::span<const TimelineColumn> columns);

/// What a tool tip tells of the frame under `x`: "Frame 12, 00:00.50"; empty beside the movie's frames.
std::string timelineTip(int x, const TimelineView& view, const qxCMovie& movie);
