#pragma once

#include "platform/windows/messages.h"

// What controls are told, and what they report to their parents, with the registered numbers.

inline constexpr UINT EM_SETSEL = 0x00B1;

inline constexpr UINT BM_GETCHECK = 0x00F0;
inline constexpr UINT BM_SETCHECK = 0x00F1;
inline constexpr UINT BM_CLICK = 0x00F5;
inline constexpr UINT BM_SETIMAGE = 0x00F7;
inline constexpr WPARAM IMAGE_ICON = 1;

inline constexpr UINT CB_ADDSTRING = 0x0143;
inline constexpr UINT CB_GETCOUNT = 0x0146;
inline constexpr UINT CB_GETCURSEL = 0x0147;
inline constexpr UINT CB_RESETCONTENT = 0x014B;
inline constexpr UINT CB_SETCURSEL = 0x014E;
inline constexpr UINT CB_GETITEMDATA = 0x0150;
inline constexpr UINT CB_SETITEMDATA = 0x0151;
inline constexpr int CB_ERR = -1;

inline constexpr UINT LB_ADDSTRING = 0x0180;
inline constexpr UINT LB_INSERTSTRING = 0x0181;
inline constexpr UINT LB_DELETESTRING = 0x0182;
inline constexpr UINT LB_RESETCONTENT = 0x0184;
inline constexpr UINT LB_SETSEL = 0x0185;
inline constexpr UINT LB_SETCURSEL = 0x0186;
inline constexpr UINT LB_GETCURSEL = 0x0188;
inline constexpr UINT LB_GETTEXT = 0x0189;
inline constexpr UINT LB_GETTEXTLEN = 0x018A;
inline constexpr UINT LB_GETCOUNT = 0x018B;
inline constexpr UINT LB_FINDSTRING = 0x018F;
inline constexpr UINT LB_GETSELCOUNT = 0x0190;
inline constexpr UINT LB_GETSELITEMS = 0x0191;
inline constexpr UINT LB_GETITEMDATA = 0x0199;
inline constexpr UINT LB_SETITEMDATA = 0x019A;
inline constexpr UINT LB_SETCARETINDEX = 0x019E;
inline constexpr UINT LB_GETCARETINDEX = 0x019F;
inline constexpr UINT LB_ITEMFROMPOINT = 0x01A9;
inline constexpr int LB_ERR = -1;

inline constexpr UINT SBM_SETPOS = 0x00E0;
inline constexpr UINT SBM_GETPOS = 0x00E1;
inline constexpr UINT SBM_SETRANGE = 0x00E2;
inline constexpr UINT SBM_GETSCROLLINFO = 0x00EA;

/// Where a scroll bar stands; a scroll message has room for 16 bits of it only.
struct SCROLLINFO {
    UINT cbSize = sizeof(SCROLLINFO);
    UINT fMask = 0;
    int nMin = 0;
    int nMax = 0;
    UINT nPage = 0;
    int nPos = 0;
    int nTrackPos = 0; ///< of the thumb, which may be in the middle of a drag
};
inline constexpr UINT SIF_POS = 0x0004;
inline constexpr UINT SIF_TRACKPOS = 0x0010;

inline constexpr UINT TBM_GETPOS = WM_USER;
inline constexpr UINT TBM_SETPOS = WM_USER + 5;
inline constexpr UINT TBM_SETRANGEMIN = WM_USER + 7;
inline constexpr UINT TBM_SETRANGEMAX = WM_USER + 8;

inline constexpr UINT PBM_SETPOS = WM_USER + 2;
inline constexpr UINT PBM_SETRANGE32 = WM_USER + 6;
inline constexpr UINT PBM_GETPOS = WM_USER + 8;

inline constexpr UINT UDM_SETRANGE32 = WM_USER + 111;
inline constexpr UINT UDM_SETPOS32 = WM_USER + 113;
inline constexpr UINT UDM_GETPOS32 = WM_USER + 114;

inline constexpr UINT TCM_INSERTITEM = 0x1307;
inline constexpr UINT TCM_GETCURSEL = 0x130B;
inline constexpr UINT TCM_SETCURSEL = 0x130C;

inline constexpr int BN_CLICKED = 0;
inline constexpr int BN_DOUBLECLICKED = 5;
inline constexpr int EN_SETFOCUS = 0x0100;
inline constexpr int EN_KILLFOCUS = 0x0200;
inline constexpr int EN_CHANGE = 0x0300;
inline constexpr int CBN_SELCHANGE = 1;
inline constexpr int LBN_SELCHANGE = 1;
inline constexpr int LBN_DBLCLK = 2;
inline constexpr UINT TCN_SELCHANGE = 0U - 551U;
inline constexpr UINT UDN_DELTAPOS = 0U - 722U;

/// Scroll codes of WM_HSCROLL and WM_VSCROLL; a trackbar uses the same numbers.
inline constexpr int SB_LINELEFT = 0;
inline constexpr int SB_LINERIGHT = 1;
inline constexpr int SB_PAGELEFT = 2;
inline constexpr int SB_PAGERIGHT = 3;
inline constexpr int SB_THUMBPOSITION = 4;
inline constexpr int SB_THUMBTRACK = 5;
inline constexpr int SB_LEFT = 6;
inline constexpr int SB_RIGHT = 7;
inline constexpr int SB_ENDSCROLL = 8;
inline constexpr int SB_CTL = 2;
