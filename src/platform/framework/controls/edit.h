#pragma once

#include "platform/framework/wnd.h"

/// A line of text to type in.
class CEdit : public CWnd {
public:
    /// Selects from start up to end (-1: to the last character).
    void SetSel(int start, int end) {
        SendMessage(EM_SETSEL, static_cast<WPARAM>(start), static_cast<LPARAM>(end));
    }
    BOOL SetReadOnly(BOOL readOnly = TRUE) {
        return static_cast<BOOL>(SendMessage(EM_SETREADONLY, static_cast<WPARAM>(readOnly)));
    }
};
