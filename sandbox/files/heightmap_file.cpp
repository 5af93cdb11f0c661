#include "sandbox/files/heightmap_file.h"

#include "sandbox/files/safe_file.h"

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

QString writeHeightmapFile(const QString& path, int edge, std::span<const std::uint16_t> heights,
                           HeightmapBits bits) {
    const auto encoded = encodeHeightmap(edge, heights, bits);
    if (!encoded.has_value()) {
        return "there is not enough memory";
    }
    return replaceFile(path, QByteArrayView(encoded->data(), static_cast<qsizetype>(encoded->size())));
}
