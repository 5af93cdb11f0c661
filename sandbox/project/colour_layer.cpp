#include "sandbox/project/colour_layer.h"

#include "sandbox/core/reason_text.h"

#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QImageWriter>
#include <QSaveFile>
#include <cstring>

namespace {

constexpr std::int64_t DEFLATE_MAX_RATIO = 1032; // RFC 1951: 258 bytes from two bits at best

/// Whether the file ends with the chunk that ends a PNG. Qt shows what it can of a picture that is cut short.
bool endsWhole(const QString& path) {
    static const QByteArray END("\0\0\0\0IEND\xAE\x42\x60\x82", 12);
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.size() > END.size() &&
           file.seek(file.size() - END.size()) && file.readAll() == END;
}

std::size_t rowBytes(int edge) {
    return static_cast<std::size_t>(edge) * sizeof(qxCColour);
}

} // namespace

QString readColourLayer(const QString& path, int edge, std::vector<qxCColour>& colours) {
    if (QFileInfo::exists(path) && !endsWhole(path)) {
        return "the file ends early";
    }
    QImageReader reader(path, "png");
    const QSize size = reader.size();
    if (!size.isValid()) {
        return reasonText(reader.errorString());
    }
    if (size != QSize(edge, edge)) {
        return QString("the picture is %1 x %2, which does not fit the map")
            .arg(size.width())
            .arg(size.height());
    }
    // A bit a pixel is the least a PNG may have.
    if (std::int64_t{edge} * edge / 8 > QFileInfo(path).size() * DEFLATE_MAX_RATIO) {
        return QString("the file is too short for a picture of %1 x %1").arg(edge);
    }
    const QImage image = reader.read().convertToFormat(QImage::Format_ARGB32);
    if (image.isNull()) {
        return reasonText(reader.errorString());
    }
    colours.resize(static_cast<std::size_t>(edge) * static_cast<std::size_t>(edge));
    for (int row = 0; row < edge; ++row) {
        std::memcpy(colours.data() + static_cast<std::size_t>(row) * static_cast<std::size_t>(edge),
                    image.constScanLine(row), rowBytes(edge));
    }
    return {};
}

QString writeColourLayer(const QString& path, int edge, const std::vector<qxCColour>& colours) {
    const QImage image(reinterpret_cast<const uchar*>(colours.data()), edge, edge,
                       static_cast<qsizetype>(rowBytes(edge)), QImage::Format_ARGB32);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        return reasonText(file.errorString());
    }
    QImageWriter writer(&file, "png");
    if (!writer.write(image)) {
        return reasonText(writer.errorString());
    }
    return file.commit() ? QString() : reasonText(file.errorString());
}
