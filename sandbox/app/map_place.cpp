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

bool CMapPlace::become(Kind kind, const QString& path, HeightmapBits bits, const QStringList& layers) {
    const QFileInfo info(QDir::cleanPath(path));
    const QString place = info.absoluteFilePath();
    m_kind = kind;
    m_bits = bits;
    m_files = QStringList(kind == Kind::PROJECT ? place + '/' + PROJECT_FILE_NAME : place);
    for (const QString& layer : layers) {
        m_files.append(place + '/' + layer);
    }
    m_strStamp = stampOf(m_files);
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
    const QString place = QFileInfo(QDir::cleanPath(path)).absoluteFilePath();
    return place != m_strPath && CPlaceLock::isTaken(place);
}
