#pragma once

#include "platform/windows_types.h"

#include <vector>

inline constexpr int WHITE_BRUSH = 0;
inline constexpr int BLACK_BRUSH = 4;
inline constexpr int NULL_BRUSH = 5;
inline constexpr int WHITE_PEN = 6;
inline constexpr int BLACK_PEN = 7;
inline constexpr int NULL_PEN = 8;
inline constexpr int PS_SOLID = 0;
inline constexpr DWORD SRCCOPY = 0x00CC0020;
inline constexpr UINT DIB_RGB_COLORS = 0;
inline constexpr DWORD BI_RGB = 0;

/// A pen, a brush or a bitmap. Owned by the C… object that made it, or by nobody when it is a stock object.
struct HGDIOBJ__ {
    enum class Kind { PEN, BRUSH, BITMAP };
    Kind kind = Kind::PEN;
    bool hollow = false; ///< draws nothing
    COLORREF colour = 0;
    int width = 1;                     ///< of a pen, pixels; of a bitmap, columns
    int height = 0;                    ///< of a bitmap, rows
    std::vector<std::uint32_t> pixels; ///< of a bitmap: 0xFFRRGGBB, rows from the top
};

/// A pen or brush that always exists; null for an unknown number.
HGDIOBJ GetStockObject(int object);

/// A picture in memory for SetDIBitsToDevice and StretchDIBits: 32 bits a pixel, 0xFFRRGGBB. The top byte
/// means nothing, and is 0xFF so that a back end can copy the pixels as they stand. A negative height means
/// rows from the top, as the toolkit's images have them.
struct BITMAPINFOHEADER {
    DWORD biSize = sizeof(BITMAPINFOHEADER);
    LONG biWidth = 0;
    LONG biHeight = 0;
    WORD biPlanes = 1;
    WORD biBitCount = 32;
    DWORD biCompression = BI_RGB;
    DWORD biSizeImage = 0;
    LONG biXPelsPerMeter = 0;
    LONG biYPelsPerMeter = 0;
    DWORD biClrUsed = 0;
    DWORD biClrImportant = 0;
};
struct BITMAPINFO {
    BITMAPINFOHEADER bmiHeader;
};

// Drawing, defined by the back end. Coordinates are the pixels of the context, rectangles as in RECT.
HDC CreateCompatibleDC(HDC reference);
/// The drawing surface of a window: to measure with, or as reference of CreateCompatibleDC. Drawing on it
/// outside of painting is lost, as the window system keeps what is painted.
HDC GetDC(HWND window);
void DeleteDC(HDC context);
/// Makes the object current and returns the former one of its kind. A bitmap goes to memory contexts only.
HGDIOBJ SelectObject(HDC context, HGDIOBJ object);
/// Fills with the current brush and frames with the current pen, right and bottom excluded.
BOOL Rectangle(HDC context, int left, int top, int right, int bottom);
BOOL SetPixelV(HDC context, int x, int y, COLORREF colour);
COLORREF GetPixel(HDC context, int x, int y); ///< memory contexts only; black elsewhere
/// Copies from a memory context; the raster operation must be SRCCOPY.
BOOL BitBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
            DWORD operation);
/// Copies a picture pixel by pixel. Returns the rows set. Source rows are counted from the top.
int SetDIBitsToDevice(HDC context, int x, int y, DWORD width, DWORD height, int sourceX, int sourceY,
                      UINT firstRow, UINT rows, const void* bits, const BITMAPINFO* info, UINT usage);
/// Copies a picture, taking the nearest source pixel where the sizes differ. Returns the rows set.
int StretchDIBits(HDC context, int x, int y, int width, int height, int sourceX, int sourceY, int sourceWidth,
                  int sourceHeight, const void* bits, const BITMAPINFO* info, UINT usage, DWORD operation);
