#pragma once

#include <QString>

/// Tells the other programs of the same person that a map is open: as long as this lives and holds a path, no
/// other lock takes it. The system's own lock on a small file in the data folder of the user, which ends with
/// its program, however that ends; nothing is written where the map is.
class CPlaceLock {
public:
    CPlaceLock() = default;
    ~CPlaceLock() { release(); }
    CPlaceLock(const CPlaceLock&) = delete;
    CPlaceLock& operator=(const CPlaceLock&) = delete;

    /// Take the file or folder in place of what was held. False when another program holds it; where no lock
    /// can be made, as on a full disk, that counts as free.
    bool acquire(const QString& path);
    void release();

    /// Whether a lock elsewhere, in this program or another, holds the path.
    static bool isTaken(const QString& path);

private:
    QString m_strFile;
    int m_nFile = -1;
};
