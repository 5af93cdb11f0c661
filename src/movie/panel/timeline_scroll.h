#pragma once

#include "platform/framework.h"

class CTimelineCtrl;

/// The scroll bar under a timeline: shows which frame comes first in it, and says where a step of the bar
/// leads. Belongs to the panel.
class CTimelineScroll {
public:
    void exchange(CDataExchange* pDX);
    /// Of a movie with so many frames.
    void show(const CTimelineCtrl& timeline, int frames);
    /// The frame that is to come first after this scroll step, held to the movie's frames.
    int target(UINT scrollCode, const CTimelineCtrl& timeline, int frames) const;

private:
    CScrollBar m_bar;
};
