#pragma once

#include "platform/windows/geometry.h"

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

class CDC;
class CWnd;

/// Copy a picture to the context's top left corner: `size.cx` by `size.cy` pixels as 0xFFRRGGBB, rows from
/// the top.
void paintPixels(CDC& dc, std::span<const std::uint32_t> pixels, CSize size);

/// What a window shows that draws into memory, once for every change, and only copies when it is painted
/// otherwise. Belongs to its window. It is made, black, in the size of the window's client area when it is
/// first drawn, and keeps that size.
class COffscreenPicture {
public:
    /// Draws into the pixels, as in paintPixels().
    using Drawing = std::function<void(std::span<std::uint32_t> pixels, CSize size)>;

    /// The window has something else to show, from its next painting on: changes that nobody sees between
    /// two paintings are not drawn.
    void outdate(CWnd& window);
    /// Whether there was ever anything to show.
    bool isBegun() const { return m_bBegun; }
    /// Draws what is outdated and copies it; nothing before the first change.
    void paint(CDC& dc, const CWnd& window, const Drawing& drawing);

private:
    CSize m_size{0, 0};
    std::vector<std::uint32_t> m_pixels;
    bool m_bBegun = false;
    bool m_bOutdated = false;
};
