#pragma once

#include "platform/framework.h"

#include <cstdint>
#include <vector>

class qxCImageFile;

/// Shows an engine image, stretched to the control, repeated if asked, over a checkerboard where it is
/// transparent. Belongs to its dialog and stands on an owner-drawn button of the dialog's template.
class CImagePreview : public CButton {
public:
    /// Show this image, which stays the caller's and must live as long as it is shown; null for none (black).
    /// It is repeated `tilesX` times across and `tilesY` times down. Does not repaint.
    void setImage(const qxCImageFile* image, int tilesX, int tilesY);

    void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct) override;

protected:
    DECLARE_MESSAGE_MAP()

private:
    int m_nTilesX = 0;
    int m_nTilesY = 0;
    const qxCImageFile* m_pImage = nullptr;
    std::vector<std::uint32_t> m_picture; ///< kept from paint to paint for its memory only
};
