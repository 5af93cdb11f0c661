#include "controls/image_preview.h"

#include "controls/preview_picture.h"

BEGIN_MESSAGE_MAP(CImagePreview, CButton)
END_MESSAGE_MAP()

void CImagePreview::setImage(const qxCImageFile* image, int tilesX, int tilesY) {
    m_nTilesX = tilesX;
    m_nTilesY = tilesY;
    m_pImage = image;
}

void CImagePreview::DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct) {
    const int width = lpDrawItemStruct->rcItem.right;
    const int height = lpDrawItemStruct->rcItem.bottom;
    if (width <= 0 || height <= 0) {
        return;
    }
    if (m_pImage == nullptr) {
        CDC::FromHandle(lpDrawItemStruct->hDC)->FillSolidRect(&lpDrawItemStruct->rcItem, RGB(0, 0, 0));
        return;
    }
    m_picture.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    if (!composePreview(m_picture, width, height, *m_pImage, m_nTilesX, m_nTilesY)) {
        return;
    }
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height; // rows from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    ::SetDIBitsToDevice(lpDrawItemStruct->hDC, 0, 0, static_cast<DWORD>(width), static_cast<DWORD>(height), 0,
                        0, 0, static_cast<UINT>(height), m_picture.data(), &info, DIB_RGB_COLORS);
}
