#pragma once

#include "platform/windows/geometry.h"

#include <cstdint>
#include <span>
#include <vector>

class CDC;
class CWnd;

/// Copy a picture to the context's top left corner: `size.cx` by `size.cy` pixels as 0xFFRRGGBB, rows from
/// the top.
void paintPixels(CDC& dc, std::span<const std::uint32_t> pixels, CSize size);

/// What a window shows that draws into memory and only copies when it is painted. Belongs to its window. It
/// is made, black, in the size of the window's client area when it is first drawn, and keeps that size.
class COffscreenPicture {
public:
    /// The pixels to draw into, as in paintPixels().
    std::span<std::uint32_t> draw(const CWnd& window);
    CSize size() const { return m_size; }
    /// Nothing before the first drawing.
    void paint(CDC& dc) const;

private:
    CSize m_size{0, 0};
    std::vector<std::uint32_t> m_pixels;
};
