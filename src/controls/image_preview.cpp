#include "controls/image_preview.h"

#include "controls/offscreen_picture.h"
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
    paintPixels(*CDC::FromHandle(lpDrawItemStruct->hDC), m_picture, {width, height});
}
