#include "movie/timeline_drag.h"

#include "engine/qx_movie.h"
#include "movie/timeline_layout.h"

#include <algorithm>
#include <utility>

namespace {

void selectBetween(qxCMovie& movie, int one, int other) {
    movie.setRangeStart(std::min(one, other));
    movie.setRangeEnd(std::max(one, other));
}

/// Put frames of the engine's making in front of the last one until that stands at `frame`, or the engine
/// refuses.
void extendTo(qxCMovie& movie, int frame) {
    for (int last = movie.getNumFrames() - 1; last < frame; ++last) {
        movie.insertFrame(last, nullptr);
        if (movie.getNumFrames() <= last + 1) {
            break;
        }
    }
    movie.updateTweening();
}

void dropFrame(qxCMovie& movie, int from, int to) {
    const int last = movie.getNumFrames() - 1;
    if (from >= 1 && from < last) {
        movie.swapFrames(from, to);
    } else if (from >= 0 && from == last && to > last) {
        extendTo(movie, to);
    }
}

} // namespace

void CTimelineDrag::begin(qxCMovie& movie, const TimelineView& view, int x, Mode mode) {
    if (m_mode == Mode::NONE) {
        m_nRangeStart = movie.getRangeStart();
        m_nRangeEnd = movie.getRangeEnd();
    }
    m_mode = mode;
    m_bCancelled = false;
    m_nAnchor = view.frameAt(x);
    movie.setRangeSingleFrame(m_nAnchor);
}

void CTimelineDrag::leftDown(qxCMovie& movie, const TimelineView& view, int x) {
    begin(movie, view, x, Mode::SELECT);
}

void CTimelineDrag::rightDown(qxCMovie& movie, const TimelineView& view, int x, bool ctrl) {
    begin(movie, view, x, ctrl ? Mode::DUPLICATE_FRAME : Mode::MOVE_FRAME);
}

bool CTimelineDrag::move(qxCMovie& movie, TimelineView& view, int x) {
    const int frame = view.frameAt(x);
    if (m_mode == Mode::SELECT) {
        selectBetween(movie, m_nAnchor, frame);
        view.ensureVisible(frame < m_nAnchor ? movie.getRangeStart() : movie.getRangeEnd());
    } else if (m_mode == Mode::MOVE_FRAME) {
        movie.setRangeSingleFrame(frame);
        view.ensureVisible(movie.getRangeStart());
    } else {
        return false;
    }
    return true;
}

bool CTimelineDrag::leftUp(qxCMovie& movie, const TimelineView& view, int x) {
    m_mode = Mode::NONE;
    if (std::exchange(m_bCancelled, false)) {
        return false;
    }
    selectBetween(movie, m_nAnchor, view.frameAt(x));
    return true;
}

bool CTimelineDrag::rightUp(qxCMovie& movie, const TimelineView& view, int x) {
    if (std::exchange(m_bCancelled, false)) {
        return false;
    }
    const int frame = view.frameAt(x);
    if (m_mode == Mode::MOVE_FRAME) {
        dropFrame(movie, m_nAnchor, frame);
    } else if (m_mode == Mode::DUPLICATE_FRAME) {
        movie.duplicateFrame(m_nAnchor, frame);
    }
    movie.setRangeSingleFrame(frame);
    m_mode = Mode::NONE;
    return true;
}

bool CTimelineDrag::cancel(qxCMovie& movie) {
    if (m_mode == Mode::NONE) {
        return false;
    }
    m_mode = Mode::NONE;
    m_bCancelled = true;
    movie.setRangeStart(m_nRangeStart);
    movie.setRangeEnd(m_nRangeEnd);
    return true;
}
