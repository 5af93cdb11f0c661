#include "sandbox/files/heightmap_file.h"

#include "sandbox/core/png_picture.h"
#include "sandbox/files/safe_file.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>

HeightmapReading readHeightmapFile(const QString& path) {
    QByteArray bytes;
    if (const QString reason = readWholeFile(path, HEIGHTMAP_MAX_FILE_SIZE, bytes); !reason.isEmpty()) {
        HeightmapReading failed;
        failed.error = reason.toStdString();
        return failed;
    }
    return decodeHeightmap(
        {reinterpret_cast<const std::uint8_t*>(bytes.constData()), static_cast<std::size_t>(bytes.size())});
}

int edgeOfHeightmapFile(const QString& path) {
    constexpr qint64 ENOUGH = 64;
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QFile::ReadOnly)) {
        return 0;
    }
    const QByteArray first = file.read(ENOUGH);
    PngHeader header;
    const std::string reason = readPngHeader(
        {reinterpret_cast<const std::uint8_t*>(first.constData()), static_cast<std::size_t>(first.size())},
        header);
    const std::uint32_t edge = std::min(header.width, header.height);
    return reason.empty() && edge <= static_cast<std::uint32_t>(HEIGHTMAP_MAX_EDGE) ? static_cast<int>(edge)
                                                                                    : 0;
}

QString writeHeightmapFile(const QString& path, int edge, std::span<const std::uint16_t> heights,
                           HeightmapBits bits) {
    const auto encoded = encodeHeightmap(edge, heights, bits);
    if (!encoded.has_value()) {
        return "there is not enough memory";
    }
    return replaceFile(path, QByteArrayView(encoded->data(), static_cast<qsizetype>(encoded->size())));
}
