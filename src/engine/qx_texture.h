#pragma once

#include "engine/qx_api.h"
#include "engine/qx_name.h"

#include <string>

/// Edge length of a square texture in texels; 0 is a texture without texels.
enum qxTextureSize {
    qxTextureSizeEmpty = 0,
    qxTextureSize1 = 1,
    qxTextureSize2 = 2,
    qxTextureSize4 = 4,
    qxTextureSize8 = 8,
    qxTextureSize16 = 16,
    qxTextureSize32 = 32,
    qxTextureSize64 = 64,
    qxTextureSize128 = 128,
    qxTextureSize256 = 256
};

/// How the texels are stored.
enum qxImagePixelFormat {
    qxPixelFormatAuto = 1,
    qxPixelFormatPalette = 2,
    qxPixelFormatPaletteAlpha = 3,
    qxPixelFormatGrey = 4,
    qxPixelFormatGreyAlpha = 5,
    qxPixelFormatRgb565 = 6,
    qxPixelFormatRgba1555 = 7,
    qxPixelFormat8 = 8,
    qxPixelFormatRgba4444 = 9
};

/// A texture record. Its scene owns it for the scene's lifetime.
class QX_API qxCTexture {
public:
    /// As shown in lists and on buttons.
    qxCName name;

    qxCTexture();
    virtual ~qxCTexture();

    /// The image file the texture is made from: a bare file name, empty at first, never null.
    const char* getFilename() const;
    void setFilename(const char* fileName);
    qxTextureSize getSize() const;
    void setSize(qxTextureSize size);
    qxImagePixelFormat getPixelFormat() const;
    void setPixelFormat(qxImagePixelFormat format);

private:
    std::string m_strFileName;
    qxTextureSize m_size = qxTextureSize256;
    qxImagePixelFormat m_format = qxPixelFormatAuto;
};
