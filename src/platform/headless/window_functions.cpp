// The window system of a program that has no windows: what the sound device asks of it.
#include "platform/windows/functions.h"

HWND GetForegroundWindow() {
    return nullptr;
}

HWND GetDesktopWindow() {
    static char s_desktop = 0;
    return reinterpret_cast<HWND>(&s_desktop);
}
