#pragma once

#include "platform/framework/wnd.h"

/// A scroll bar that stands alone. It does not move by itself: the parent answers WM_HSCROLL with
/// SetScrollPos.
class CScrollBar : public CWnd {
public:
    void SetScrollRange(int minimum, int maximum, BOOL redraw = TRUE) {
        static_cast<void>(redraw);
        SendMessage(SBM_SETRANGE, static_cast<WPARAM>(minimum), maximum);
    }
    /// The former position.
    int SetScrollPos(int position, BOOL redraw = TRUE) {
        return static_cast<int>(SendMessage(SBM_SETPOS, static_cast<WPARAM>(position), redraw));
    }
    BOOL GetScrollInfo(SCROLLINFO* info, UINT mask) const {
        info->fMask = mask;
        return static_cast<BOOL>(SendMessage(SBM_GETSCROLLINFO, 0, reinterpret_cast<LPARAM>(info)));
    }
    int GetScrollPos() const { return static_cast<int>(SendMessage(SBM_GETPOS)); }
};
