#pragma once

#include "platform/framework/wnd.h"

/// A pair of arrows, mostly beside the edit that is its buddy. Reports each step with UDN_DELTAPOS before it
/// is made. The default range runs from 100 at the bottom to 0 at the top, so that the up arrow counts down.
class CSpinButtonCtrl : public CWnd {
public:
    void SetRange32(int lower, int upper) { SendMessage(UDM_SETRANGE32, static_cast<WPARAM>(lower), upper); }
    int SetPos(int position) { return static_cast<int>(SendMessage(UDM_SETPOS32, 0, position)); }
    int GetPos() const { return static_cast<int>(SendMessage(UDM_GETPOS32)); }
};
