#ifndef VESK_WINRESRC_H
#define VESK_WINRESRC_H

/* The window and control styles that the resource script uses, under the names and with the values that the
   platform SDK's header of this name gives them; an SDK's own header serves as well. */

#define WS_POPUP 0x80000000L
#define WS_CHILD 0x40000000L
#define WS_VISIBLE 0x10000000L
#define WS_DISABLED 0x08000000L
#define WS_CAPTION 0x00C00000L
#define WS_BORDER 0x00800000L
#define WS_VSCROLL 0x00200000L
#define WS_SYSMENU 0x00080000L
#define WS_GROUP 0x00020000L
#define WS_TABSTOP 0x00010000L

#define DS_SETFONT 0x40L
#define DS_MODALFRAME 0x80L

#define BS_PUSHBUTTON 0x0L
#define BS_AUTOCHECKBOX 0x3L
#define BS_AUTORADIOBUTTON 0x9L
#define BS_OWNERDRAW 0xBL
#define BS_ICON 0x40L
#define BS_PUSHLIKE 0x1000L

#define CBS_DROPDOWN 0x2L
#define CBS_DROPDOWNLIST 0x3L
#define CBS_SORT 0x100L

#define ES_AUTOHSCROLL 0x80L
#define ES_READONLY 0x800L

#define LBS_NOTIFY 0x1L
#define LBS_SORT 0x2L
#define LBS_EXTENDEDSEL 0x800L

#define SS_BLACKFRAME 0x7L

#define TBS_AUTOTICKS 0x1L

#define UDS_AUTOBUDDY 0x10L
#define UDS_ARROWKEYS 0x20L

#define IDOK 1
#define IDCANCEL 2
#define IDC_STATIC (-1)

#endif
