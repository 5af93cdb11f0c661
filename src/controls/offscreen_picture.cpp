#include "controls/offscreen_picture.h"

#include "platform/framework.h"

#include <utility>

namespace {

constexpr std::uint32_t BLACK = 0xFF000000U;

} // namespace

void paintPixels(CDC& dc, std::span<const std::uint32_t> pixels, CSize size) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = size.cx;
    info.bmiHeader.biHeight = -size.cy; // rows from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    ::SetDIBitsToDevice(dc.m_hDC, 0, 0, static_cast<DWORD>(size.cx), static_cast<DWORD>(size.cy), 0, 0, 0,
                        static_cast<UINT>(size.cy), pixels.data(), &info, DIB_RGB_COLORS);
}

void COffscreenPicture::outdate(CWnd& window) {
    m_bBegun = true;
    m_bOutdated = true;
    window.Invalidate(FALSE);
}

void COffscreenPicture::paint(CDC& dc, const CWnd& window, const Drawing& drawing) {
    if (m_bBegun && m_pixels.empty()) {
        CRect client;
        window.GetClientRect(client);
        m_size = client.IsRectEmpty() ? CSize(0, 0) : client.Size();
        m_pixels.assign(static_cast<std::size_t>(m_size.cx) * static_cast<std::size_t>(m_size.cy), BLACK);
    }
    if (m_pixels.empty()) {
        return;
    }
    if (std::exchange(m_bOutdated, false)) {
        drawing(m_pixels, m_size);
    }
    paintPixels(dc, m_pixels, m_size);
}
