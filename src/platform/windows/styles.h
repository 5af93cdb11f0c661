#pragma once

#include "platform/windows_types.h"

// Window, dialog and control styles with their registered values.

inline constexpr DWORD WS_TABSTOP = 0x00010000;
inline constexpr DWORD WS_GROUP = 0x00020000;
inline constexpr DWORD WS_SYSMENU = 0x00080000;
inline constexpr DWORD WS_VSCROLL = 0x00200000;
inline constexpr DWORD WS_BORDER = 0x00800000;
inline constexpr DWORD WS_CAPTION = 0x00C00000;
inline constexpr DWORD WS_DISABLED = 0x08000000;
inline constexpr DWORD WS_VISIBLE = 0x10000000;
inline constexpr DWORD WS_CHILD = 0x40000000;
inline constexpr DWORD WS_POPUP = 0x80000000;
inline constexpr DWORD WS_EX_CLIENTEDGE = 0x00000200;
inline constexpr DWORD WS_EX_STATICEDGE = 0x00020000;

inline constexpr DWORD BS_PUSHBUTTON = 0x0;
inline constexpr DWORD BS_DEFPUSHBUTTON = 0x1;
inline constexpr DWORD BS_CHECKBOX = 0x2;
inline constexpr DWORD BS_AUTOCHECKBOX = 0x3;
inline constexpr DWORD BS_RADIOBUTTON = 0x4;
inline constexpr DWORD BS_GROUPBOX = 0x7;
inline constexpr DWORD BS_AUTORADIOBUTTON = 0x9;
inline constexpr DWORD BS_OWNERDRAW = 0xB;
inline constexpr DWORD BS_TYPEMASK = 0xF;
inline constexpr DWORD BS_ICON = 0x0040;
inline constexpr DWORD BS_PUSHLIKE = 0x1000;

inline constexpr DWORD ES_CENTER = 0x0001;
inline constexpr DWORD ES_RIGHT = 0x0002;
inline constexpr DWORD ES_AUTOHSCROLL = 0x0080;
inline constexpr DWORD ES_READONLY = 0x0800;

inline constexpr DWORD SS_LEFT = 0x0;
inline constexpr DWORD SS_CENTER = 0x1;
inline constexpr DWORD SS_RIGHT = 0x2;
inline constexpr DWORD SS_ICON = 0x3;
inline constexpr DWORD SS_BLACKRECT = 0x4;
inline constexpr DWORD SS_BLACKFRAME = 0x7;
inline constexpr DWORD SS_GRAYFRAME = 0x8;
inline constexpr DWORD SS_WHITEFRAME = 0x9;
inline constexpr DWORD SS_LEFTNOWORDWRAP = 0xC;
inline constexpr DWORD SS_ETCHEDFRAME = 0x12;
inline constexpr DWORD SS_TYPEMASK = 0x1F;
inline constexpr DWORD SS_CENTERIMAGE = 0x0200;

inline constexpr DWORD CBS_DROPDOWN = 0x0002;
inline constexpr DWORD CBS_DROPDOWNLIST = 0x0003;
inline constexpr DWORD CBS_SORT = 0x0100;

inline constexpr DWORD LBS_NOTIFY = 0x0001;
inline constexpr DWORD LBS_SORT = 0x0002;
inline constexpr DWORD LBS_MULTIPLESEL = 0x0008;
inline constexpr DWORD LBS_EXTENDEDSEL = 0x0800;

inline constexpr DWORD SBS_VERT = 0x0001;
inline constexpr DWORD TBS_AUTOTICKS = 0x0001;
inline constexpr DWORD TBS_VERT = 0x0002;

inline constexpr DWORD UDS_WRAP = 0x0001;
inline constexpr DWORD UDS_SETBUDDYINT = 0x0002;
inline constexpr DWORD UDS_ALIGNRIGHT = 0x0004;
inline constexpr DWORD UDS_ALIGNLEFT = 0x0008;
inline constexpr DWORD UDS_AUTOBUDDY = 0x0010;
inline constexpr DWORD UDS_ARROWKEYS = 0x0020;

inline constexpr UINT CS_VREDRAW = 0x0001;
inline constexpr UINT CS_HREDRAW = 0x0002;
