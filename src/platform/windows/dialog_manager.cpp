#include "platform/windows/dialog_manager.h"

#include "platform/windows/back_end.h"
#include "platform/windows/control_messages.h"
#include "platform/windows/functions.h"
#include "platform/windows/styles.h"

#include <algorithm>
#include <vector>

namespace {

using Controls = std::vector<HWND>;

Controls controlsOf(HWND dialog) {
    Controls controls;
    for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        controls.push_back(child);
    }
    return controls;
}

/// The controls from the group's first, marked WS_GROUP, to the one before the next such mark.
Controls groupOf(HWND dialog, HWND control) {
    const Controls all = controlsOf(dialog);
    const auto startsGroup = [](HWND window) { return (GetWindowStyle(window) & WS_GROUP) != 0; };
    const auto place = std::find(all.begin(), all.end(), control);
    if (place == all.end()) {
        return {};
    }
    auto first = place;
    while (first != all.begin() && !startsGroup(*first)) {
        --first;
    }
    return {first, std::find_if(place + 1, all.end(), startsGroup)};
}

bool hasCode(HWND control, LRESULT code) {
    return (SendMessage(control, WM_GETDLGCODE, 0, 0) & code) != 0;
}

bool isUsable(HWND control) {
    return IsWindowVisible(control) != FALSE && IsWindowEnabled(control) != FALSE;
}

bool isChecked(HWND button) {
    return SendMessage(button, BM_GETCHECK, 0, 0) != 0;
}

/// The one radio button of a group that Tab goes to: the checked one, or the first when none is.
HWND radioStop(const Controls& group) {
    Controls radios;
    std::copy_if(group.begin(), group.end(), std::back_inserter(radios),
                 [](HWND member) { return hasCode(member, DLGC_RADIOBUTTON) && isUsable(member); });
    const auto checked = std::find_if(radios.begin(), radios.end(), isChecked);
    if (checked != radios.end()) {
        return *checked;
    }
    return radios.empty() ? nullptr : radios.front();
}

bool isTabStop(HWND dialog, HWND control) {
    if (!isUsable(control)) {
        return false;
    }
    return hasCode(control, DLGC_RADIOBUTTON) ? radioStop(groupOf(dialog, control)) == control
                                              : (GetWindowStyle(control) & WS_TABSTOP) != 0;
}

/// The control that a key to the dialog is about, when it is one of its own.
HWND focusedControl(HWND dialog) {
    const HWND focus = GetFocus();
    return focus != nullptr && focus != dialog && GetParent(focus) == dialog ? focus : nullptr;
}

void moveFocus(HWND control) {
    if (control == nullptr) {
        return;
    }
    SetFocus(control);
    if (GetFocus() == control) { // the control left may have taken it back
        SendMessage(control, EM_SETSEL, 0, -1);
    }
}

void pressButton(HWND dialog, int id) {
    const HWND button = GetDlgItem(dialog, id);
    if (button == nullptr || IsWindowEnabled(button) != FALSE) {
        SendMessage(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(button));
    }
}

void onEnter(HWND dialog) {
    const HWND focus = focusedControl(dialog);
    if (focus != nullptr && hasCode(focus, DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) {
        pressButton(dialog, GetDlgCtrlID(focus));
        return;
    }
    const LRESULT answer = SendMessage(dialog, DM_GETDEFID, 0, 0);
    pressButton(dialog, HIWORD(answer) == DC_HASDEFID ? LOWORD(answer) : IDOK);
}

bool onArrow(HWND dialog, bool previous) {
    const HWND focus = focusedControl(dialog);
    if (focus == nullptr || hasCode(focus, DLGC_WANTARROWS)) {
        return false;
    }
    const HWND next = GetNextDlgGroupItem(dialog, focus, previous ? TRUE : FALSE);
    if (next != nullptr && next != focus) {
        moveFocus(next);
        if (hasCode(next, DLGC_RADIOBUTTON)) {
            SendMessage(next, BM_CLICK, 0, 0);
        }
    }
    return true;
}

/// Closing asks for Cancel. It is posted, as the handler may end the window that is closing.
void onClose(HWND dialog) {
    const HWND button = GetDlgItem(dialog, IDCANCEL);
    if (button == nullptr || IsWindowEnabled(button) != FALSE) {
        PostMessage(dialog, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), reinterpret_cast<LPARAM>(button));
    }
}

LRESULT defaultButton(HWND dialog) {
    for (HWND control : controlsOf(dialog)) {
        if (hasCode(control, DLGC_DEFPUSHBUTTON)) {
            return MAKELONG(GetDlgCtrlID(control), DC_HASDEFID);
        }
    }
    return 0;
}

/// Moves the dialog back to where windows may stand when it sticks out.
void reposition(HWND dialog) {
    const RECT area = GetWorkArea(dialog);
    RECT own;
    GetWindowRect(dialog, &own);
    const int x = std::max(std::min(own.left, area.right - (own.right - own.left)), area.left);
    const int y = std::max(std::min(own.top, area.bottom - (own.bottom - own.top)), area.top);
    if (x != own.left || y != own.top) {
        SetWindowPos(dialog, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

/// The first of the controls after the given one, round and round, that passes; null when none does.
template <class Passes> HWND nextIn(Controls controls, HWND after, bool previous, Passes passes) {
    if (previous) {
        std::reverse(controls.begin(), controls.end());
    }
    const auto place = std::find(controls.begin(), controls.end(), after);
    if (place != controls.end()) {
        std::rotate(controls.begin(), place + 1, controls.end());
    }
    const auto found = std::find_if(controls.begin(), controls.end(), passes);
    return found != controls.end() ? *found : nullptr;
}

} // namespace

HWND GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous) {
    return nextIn(controlsOf(dialog), control, previous != FALSE,
                  [dialog](HWND candidate) { return isTabStop(dialog, candidate); });
}

HWND GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous) {
    return nextIn(groupOf(dialog, control), control, previous != FALSE,
                  [](HWND candidate) { return isUsable(candidate) && !hasCode(candidate, DLGC_STATIC); });
}

BOOL IsDialogMessage(HWND dialog, MSG* message) {
    if (message->message != WM_KEYDOWN) {
        return FALSE;
    }
    switch (message->wParam) {
    case VK_TAB:
        moveFocus(GetNextDlgTabItem(dialog, focusedControl(dialog), IsKeyHeld(VK_SHIFT)));
        return TRUE;
    case VK_RETURN:
        onEnter(dialog);
        return TRUE;
    case VK_ESCAPE:
        pressButton(dialog, IDCANCEL);
        return TRUE;
    case VK_LEFT:
    case VK_UP:
        return onArrow(dialog, true) ? TRUE : FALSE;
    case VK_RIGHT:
    case VK_DOWN:
        return onArrow(dialog, false) ? TRUE : FALSE;
    default:
        return FALSE;
    }
}

LRESULT DefDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CLOSE:
        onClose(dialog);
        return 0;
    case DM_GETDEFID:
        return defaultButton(dialog);
    case DM_REPOSITION:
        reposition(dialog);
        return 0;
    default:
        return DefWindowProc(dialog, message, wParam, lParam);
    }
}
