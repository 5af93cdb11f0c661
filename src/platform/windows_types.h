#pragma once

#include "platform/window_handle.h"

#include <cstdint>

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using BOOL = int;
using UINT = unsigned int;
using LONG = std::int32_t;
using SHORT = std::int16_t;
using UINT_PTR = std::uintptr_t;
using INT_PTR = std::intptr_t;
using LONG_PTR = std::intptr_t;
using DWORD_PTR = std::uintptr_t;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using LPSTR = char*;
using LPTSTR = char*;
using LPCSTR = const char*; ///< texts are zero-terminated UTF-8
using LPCTSTR = const char*;
using LPVOID = void*;

/// A colour as 0x00BBGGRR.
using COLORREF = DWORD;

using HDC = struct HDC__*;
using HGDIOBJ = struct HGDIOBJ__*;
using HICON = struct HICON__*;
using HCURSOR = struct HICON__*;
using HINSTANCE = struct HINSTANCE__*;
using HRGN = struct HRGN__*;
using HBRUSH = HGDIOBJ;
using HBITMAP = HGDIOBJ;
using POSITION = struct POSITION__*;

inline constexpr BOOL FALSE = 0;
inline constexpr BOOL TRUE = 1;

constexpr WORD LOWORD(DWORD_PTR value) {
    return static_cast<WORD>(value & 0xFFFFU);
}
constexpr WORD HIWORD(DWORD_PTR value) {
    return static_cast<WORD>((value >> 16U) & 0xFFFFU);
}
constexpr WORD LOWORD(LPARAM value) {
    return LOWORD(static_cast<DWORD_PTR>(value));
}
constexpr WORD HIWORD(LPARAM value) {
    return HIWORD(static_cast<DWORD_PTR>(value));
}

/// The low 16 bits of each argument side by side, the first one below.
constexpr LONG MAKELONG(int low, int high) {
    const auto bits = (static_cast<DWORD>(high) & 0xFFFFU) << 16U | (static_cast<DWORD>(low) & 0xFFFFU);
    return static_cast<LONG>(bits);
}
constexpr WPARAM MAKEWPARAM(int low, int high) {
    return static_cast<DWORD>(MAKELONG(low, high));
}
constexpr LPARAM MAKELPARAM(int low, int high) {
    return MAKELONG(low, high);
}

/// Each channel 0 to 255.
constexpr COLORREF RGB(int red, int green, int blue) {
    const auto byteOf = [](int channel) { return static_cast<DWORD>(channel) & 0xFFU; };
    return byteOf(red) | byteOf(green) << 8U | byteOf(blue) << 16U;
}
constexpr BYTE GetRValue(COLORREF colour) {
    return static_cast<BYTE>(colour & 0xFFU);
}
constexpr BYTE GetGValue(COLORREF colour) {
    return static_cast<BYTE>((colour >> 8U) & 0xFFU);
}
constexpr BYTE GetBValue(COLORREF colour) {
    return static_cast<BYTE>((colour >> 16U) & 0xFFU);
}

/// Right and bottom lie just outside.
struct RECT {
    LONG left = 0;
    LONG top = 0;
    LONG right = 0;
    LONG bottom = 0;
};

struct POINT {
    LONG x = 0;
    LONG y = 0;
};

struct SIZE {
    LONG cx = 0;
    LONG cy = 0;
};

using LPRECT = RECT*;
using LPCRECT = const RECT*;
using LPPOINT = POINT*;
