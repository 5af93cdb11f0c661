#pragma once

#include "platform/framework.h"

/// Enable the panel's Undo button when the history holds a step, and let the bar show in whole per cent, cut
/// off, how full the history is. Of a history only isEmpty() and fillPercent(), 0 to 100, are asked.
template <class History>
void showHistory(const CWnd& panel, int undoButtonId, CProgressCtrl& fillBar, const History& history) {
    constexpr int FULL = 100;
    panel.GetDlgItem(undoButtonId)->EnableWindow(history.isEmpty() ? FALSE : TRUE);
    fillBar.SetRange(0, FULL);
    fillBar.SetPos(static_cast<int>(history.fillPercent()));
}
