#pragma once

#include "platform/framework/wnd.h"

/// A trackbar. What the user does with it arrives at the parent as WM_HSCROLL or WM_VSCROLL.
class CSliderCtrl : public CWnd {
public:
    /// A position outside is moved to the nearer end.
    void SetRange(int minimum, int maximum, BOOL redraw = FALSE) {
        SendMessage(TBM_SETRANGEMIN, 0, minimum);
        SendMessage(TBM_SETRANGEMAX, static_cast<WPARAM>(redraw), maximum);
    }
    int GetPos() const { return static_cast<int>(SendMessage(TBM_GETPOS)); }
    void SetPos(int position) { SendMessage(TBM_SETPOS, TRUE, position); }
};
