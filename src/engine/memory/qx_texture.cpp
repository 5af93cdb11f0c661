#include "engine/qx_texture.h"

qxCTexture::qxCTexture() = default;

qxCTexture::~qxCTexture() = default;

const char* qxCTexture::getFilename() const {
    return m_strFileName.c_str();
}

void qxCTexture::setFilename(const char* fileName) {
    // By way of a copy: the text may be this texture's own.
    m_strFileName = std::string(fileName != nullptr ? fileName : "");
}

qxTextureSize qxCTexture::getSize() const {
    return m_size;
}

void qxCTexture::setSize(qxTextureSize size) {
    m_size = size;
}

qxImagePixelFormat qxCTexture::getPixelFormat() const {
    return m_format;
}

void qxCTexture::setPixelFormat(qxImagePixelFormat format) {
    m_format = format;
}
