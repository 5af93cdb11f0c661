#include "movie/panel/timeline_scroll.h"

#include "movie/panel/timeline_ctrl.h"
#include "resources/resource_ids.h"

#include <algorithm>
#include <limits>

namespace {

constexpr int FRAMES_A_PAGE = 5;

/// Where a step leads from frame `first`, which may be outside of an int; `thumb` is where the thumb stands.
long long steppedTo(UINT scrollCode, long long first, int thumb) {
    switch (scrollCode) {
    case SB_LINELEFT:
        return first - 1;
    case SB_LINERIGHT:
        return first + 1;
    case SB_PAGELEFT:
        return first - FRAMES_A_PAGE;
    case SB_PAGERIGHT:
        return first + FRAMES_A_PAGE;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK:
        return thumb;
    case SB_LEFT:
        return 0;
    case SB_RIGHT:
        return std::numeric_limits<int>::max();
    default:
        return first;
    }
}

} // namespace

void CTimelineScroll::exchange(CDataExchange* pDX) {
    DDX_Control(pDX, IDC_TIMELINE_SCROLL, m_bar);
}

void CTimelineScroll::show(const CTimelineCtrl& timeline, int frames) {
    m_bar.SetScrollRange(0, std::max(frames - 1, 0), FALSE);
    m_bar.SetScrollPos(timeline.getFirstFrame());
}

int CTimelineScroll::target(UINT scrollCode, const CTimelineCtrl& timeline, int frames) const {
    SCROLLINFO info; // the scroll message has room for half of the position
    m_bar.GetScrollInfo(&info, SIF_TRACKPOS);
    const long long stepped = steppedTo(scrollCode, timeline.getFirstFrame(), info.nTrackPos);
    return static_cast<int>(std::clamp<long long>(stepped, 0, std::max(frames - 1, 0)));
}
