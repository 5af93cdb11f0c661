#include "sandbox/view/base_texture.h"

#include "engine/qx_image_file.h"
#include "engine/qx_texture.h"

#include <QImage>

namespace {

QImage toImage(const qxCImageFile& file) {
    QImage image(file.width, file.height, QImage::Format_ARGB32);
    for (int y = 0; y < file.height; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < file.width; ++x) {
            const qxCColour colour = file.getPixel(x, y);
            line[x] = qRgba(colour.r, colour.g, colour.b, colour.a);
        }
    }
    return image;
}

} // namespace

std::unique_ptr<QOpenGLTexture> loadBaseTexture(const qxCTexture* texture) {
    qxCImageFile file;
    if (texture == nullptr || !file.load(texture->getFilename(), false) || file.width <= 0 ||
        file.height <= 0) {
        return nullptr;
    }
    auto loaded = std::make_unique<QOpenGLTexture>(toImage(file), QOpenGLTexture::GenerateMipMaps);
    loaded->setWrapMode(QOpenGLTexture::Repeat);
    loaded->setMinMagFilters(QOpenGLTexture::LinearMipMapLinear, QOpenGLTexture::Linear);
    return loaded;
}
