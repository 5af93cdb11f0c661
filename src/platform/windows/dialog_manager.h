#pragma once

#include "platform/windows/messages.h"

// What a dialog does by itself: the keyboard, the default button, the close box.

/// The next or previous control with a tab stop that is shown and enabled, round and round.
HWND GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous);
/// The next or previous member of the control's group, as WS_GROUP marks them out.
HWND GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous);
/// Runs what a dialog does with a key: Tab, Enter, Escape and the arrows. Non-zero when the key was used up.
BOOL IsDialogMessage(HWND dialog, MSG* message);
/// The default processing of a dialog's messages.
LRESULT DefDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
