#include "sandbox/app/map_place.h"

#include "sandbox/app/file_places.h"
#include "sandbox/files/file_stamp.h"

#include <QDir>
#include <QFileInfo>

bool CMapPlace::hold(const QString& path) {
    if (path == m_strPath) {
        return true;
    }
    m_strPath.clear();
    m_lock.release();
    if (!path.isEmpty() && m_lock.acquire(path)) {
        m_strPath = path;
    }
    return path.isEmpty() || !m_strPath.isEmpty();
}

QStringList CMapPlace::filesOf(Kind kind, const QString& path, const QStringList& layers) {
    QStringList files(kind == Kind::PROJECT ? path + '/' + PROJECT_FILE_NAME : path);
    for (const QString& layer : layers) {
        files.append(path + '/' + layer);
    }
    return files;
}

bool CMapPlace::become(Kind kind, const QString& path, HeightmapBits bits, const QStringList& layers,
                       const QString& stamp) {
    const QFileInfo info(QDir::cleanPath(path));
    const QString place = info.absoluteFilePath();
    m_kind = kind;
    m_bits = bits;
    m_files = filesOf(kind, place, layers);
    m_strStamp = stamp.isEmpty() ? stampOf(m_files) : stamp;
    m_strName = info.fileName();
    if (isSample(path)) {
        m_strName += " (sample)";
        return hold({});
    }
    if (!hold(place)) {
        m_strName += " (copy)";
        return false;
    }
    return true;
}

void CMapPlace::become(Kind kind, const QString& name) {
    hold({});
    m_kind = kind;
    m_bits = HeightmapBits::SIXTEEN;
    m_strName = name;
}

bool CMapPlace::become(const CopyOrigin& origin) {
    m_kind = origin.isHeightmap ? Kind::HEIGHTMAP : Kind::PROJECT;
    m_bits =
        origin.bits == static_cast<int>(HeightmapBits::EIGHT) ? HeightmapBits::EIGHT : HeightmapBits::SIXTEEN;
    m_strName = origin.name;
    m_files = origin.files;
    m_strStamp = origin.stamp;
    return hold(origin.place);
}

CopyOrigin CMapPlace::origin() const {
    return {m_strPath, m_strName, m_kind == Kind::HEIGHTMAP, static_cast<int>(m_bits), m_files, m_strStamp};
}

bool CMapPlace::hasChangedOnDisk() const {
    return !m_strPath.isEmpty() && QFileInfo(m_files.first()).isFile() && stampOf(m_files) != m_strStamp;
}

bool CMapPlace::isOpenElsewhere(const QString& path) const {
    const QFileInfo info(QDir::cleanPath(path));
    const QFileInfo place(info.fileName() == QLatin1String(PROJECT_FILE_NAME) ? info.absolutePath()
                                                                              : info.absoluteFilePath());
    const bool isOwn =
        place.absoluteFilePath() == m_strPath ||
        (place.exists() && place.canonicalFilePath() == QFileInfo(m_strPath).canonicalFilePath());
    return !isOwn && CPlaceLock::isTaken(place.absoluteFilePath());
}
