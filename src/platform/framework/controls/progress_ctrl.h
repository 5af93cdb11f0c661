#pragma once

#include "platform/framework/wnd.h"

/// A bar that fills up.
class CProgressCtrl : public CWnd {
public:
    void SetRange(short lower, short upper) { SetRange32(lower, upper); }
    void SetRange32(int lower, int upper) { SendMessage(PBM_SETRANGE32, static_cast<WPARAM>(lower), upper); }
    /// The former position; a position out of range is moved to its end.
    int SetPos(int position) {
        return static_cast<int>(SendMessage(PBM_SETPOS, static_cast<WPARAM>(position)));
    }
    int GetPos() const { return static_cast<int>(SendMessage(PBM_GETPOS)); }
};
