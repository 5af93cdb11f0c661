#include "sandbox/app/heightmap_file.h"

#include <QFileInfo>
#include <QSaveFile>

namespace {

HeightmapReading failed(const QString& reason) {
    HeightmapReading reading;
    reading.error = reason.toStdString();
    return reading;
}

/// The system's reason as a clause: Qt's texts begin with a capital letter.
QString reasonOf(const QFileDevice& file) {
    const QString text = file.errorString();
    return text.left(1).toLower() + text.mid(1);
}

} // namespace

HeightmapReading readHeightmapFile(const QString& path) {
    QFile file(path);
    const QFileInfo info(path);
    if (info.exists() && !info.isFile()) {
        return failed("it is not a file"); // a folder, or a pipe that would be read without end
    }
    if (!file.open(QIODevice::ReadOnly)) {
        return failed(reasonOf(file));
    }
    if (file.size() > HEIGHTMAP_MAX_FILE_SIZE) {
        return failed(QString("it is larger than %1 MB").arg(HEIGHTMAP_MAX_FILE_SIZE / 1024 / 1024));
    }
    const qint64 size = file.size();
    const QByteArray bytes = file.read(size);
    if (bytes.size() != size) {
        return failed(reasonOf(file));
    }
    return decodeHeightmap(
        {reinterpret_cast<const std::uint8_t*>(bytes.constData()), static_cast<std::size_t>(bytes.size())});
}

QString writeHeightmapFile(const QString& path, const Heightmap& map) {
    const auto encoded = encodeHeightmap(map);
    if (!encoded.has_value()) {
        return "there is not enough memory";
    }
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        return reasonOf(file);
    }
    const auto* bytes = reinterpret_cast<const char*>(encoded->data());
    auto left = static_cast<qint64>(encoded->size());
    while (left > 0) {
        // A disk that fills up takes a part of the bytes without an error; only the next write fails.
        const qint64 written = file.write(bytes, left);
        if (written <= 0) {
            const QString reason = reasonOf(file);
            file.cancelWriting();
            return reason;
        }
        bytes += written;
        left -= written;
    }
    return file.commit() ? QString() : reasonOf(file);
}
