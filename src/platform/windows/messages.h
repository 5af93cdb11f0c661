#pragma once

#include "platform/windows_types.h"

// The messages, notifications and keys that pass between windows, with their registered numbers.

inline constexpr UINT WM_NULL = 0x0000;
inline constexpr UINT WM_CREATE = 0x0001;
inline constexpr UINT WM_DESTROY = 0x0002;
inline constexpr UINT WM_SIZE = 0x0005;
inline constexpr UINT WM_ACTIVATE = 0x0006;
inline constexpr UINT WM_SETFOCUS = 0x0007;
inline constexpr UINT WM_KILLFOCUS = 0x0008;
inline constexpr UINT WM_PAINT = 0x000F;
inline constexpr UINT WM_CLOSE = 0x0010;
inline constexpr UINT WM_ERASEBKGND = 0x0014;
inline constexpr UINT WM_DRAWITEM = 0x002B;
inline constexpr UINT WM_NOTIFY = 0x004E;
inline constexpr UINT WM_NCDESTROY = 0x0082;
inline constexpr UINT WM_GETDLGCODE = 0x0087;
inline constexpr UINT WM_KEYDOWN = 0x0100;
inline constexpr UINT WM_KEYUP = 0x0101;
inline constexpr UINT WM_INITDIALOG = 0x0110;
inline constexpr UINT WM_COMMAND = 0x0111;
inline constexpr UINT WM_TIMER = 0x0113;
inline constexpr UINT WM_HSCROLL = 0x0114;
inline constexpr UINT WM_VSCROLL = 0x0115;
inline constexpr UINT WM_MOUSEMOVE = 0x0200;
inline constexpr UINT WM_LBUTTONDOWN = 0x0201;
inline constexpr UINT WM_LBUTTONUP = 0x0202;
inline constexpr UINT WM_LBUTTONDBLCLK = 0x0203;
inline constexpr UINT WM_RBUTTONDOWN = 0x0204;
inline constexpr UINT WM_RBUTTONUP = 0x0205;
inline constexpr UINT WM_RBUTTONDBLCLK = 0x0206;
inline constexpr UINT WM_MOUSEWHEEL = 0x020A;
inline constexpr UINT WM_USER = 0x0400;
/// Added to a message that a parent hands back to the control it came from.
inline constexpr UINT WM_REFLECT_BASE = 0xBC00;

/// Answers of WM_GETDLGCODE, a sum of bits.
inline constexpr LRESULT DLGC_WANTARROWS = 0x0001;
inline constexpr LRESULT DLGC_DEFPUSHBUTTON = 0x0010;
inline constexpr LRESULT DLGC_UNDEFPUSHBUTTON = 0x0020;
inline constexpr LRESULT DLGC_RADIOBUTTON = 0x0040;
inline constexpr LRESULT DLGC_STATIC = 0x0100;
inline constexpr LRESULT DLGC_BUTTON = 0x2000;

/// High word of a DM_GETDEFID answer that names a default button.
inline constexpr WORD DC_HASDEFID = 0x534B;
inline constexpr UINT DM_GETDEFID = WM_USER + 0;
inline constexpr UINT DM_REPOSITION = WM_USER + 2;

inline constexpr UINT MK_LBUTTON = 0x0001;
inline constexpr UINT MK_RBUTTON = 0x0002;
inline constexpr UINT MK_SHIFT = 0x0004;
inline constexpr UINT MK_CONTROL = 0x0008;

/// One notch of WM_MOUSEWHEEL, in the high word; positive is away from the user.
inline constexpr int WHEEL_DELTA = 120;

inline constexpr WPARAM VK_TAB = 0x09;
inline constexpr WPARAM VK_RETURN = 0x0D;
inline constexpr WPARAM VK_SHIFT = 0x10;
inline constexpr WPARAM VK_CONTROL = 0x11;
inline constexpr WPARAM VK_ESCAPE = 0x1B;
inline constexpr WPARAM VK_SPACE = 0x20;
inline constexpr WPARAM VK_END = 0x23;
inline constexpr WPARAM VK_HOME = 0x24;
inline constexpr WPARAM VK_LEFT = 0x25;
inline constexpr WPARAM VK_UP = 0x26;
inline constexpr WPARAM VK_RIGHT = 0x27;
inline constexpr WPARAM VK_DOWN = 0x28;
inline constexpr WPARAM VK_OEM_COMMA = 0xBC;
inline constexpr WPARAM VK_OEM_PERIOD = 0xBE;
/// In the high word of WM_KEYDOWN's lParam: the key has been held and repeats itself.
inline constexpr WORD KF_REPEAT = 0x4000;

inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;
inline constexpr int IDYES = 6;
inline constexpr int IDNO = 7;
inline constexpr int IDC_STATIC = -1;

/// A message on its way to a window, as PreTranslateMessage sees it.
struct MSG {
    HWND hwnd = nullptr;
    UINT message = WM_NULL;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    DWORD time = 0;
    POINT pt;
};

/// The head of every WM_NOTIFY record.
struct NMHDR {
    HWND hwndFrom = nullptr;
    UINT_PTR idFrom = 0;
    UINT code = 0;
};

/// UDN_DELTAPOS: an up-down control is about to move from iPos by iDelta.
struct NMUPDOWN {
    NMHDR hdr;
    int iPos = 0;
    int iDelta = 0;
};
using NM_UPDOWN = NMUPDOWN;
using LPNMUPDOWN = NMUPDOWN*;
