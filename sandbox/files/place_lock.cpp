#include "sandbox/files/place_lock.h"

#include "sandbox/files/user_data.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

/// One name for a place, by whatever links it is reached.
QString lockFileFor(const QString& path) {
    const QFileInfo info(path);
    const QString place = info.exists() ? info.canonicalFilePath() : info.absoluteFilePath();
    const QByteArray name = QCryptographicHash::hash(place.toUtf8(), QCryptographicHash::Sha1).toHex();
    return userDataFolder("open") + '/' + QString::fromLatin1(name);
}

/// The file opened and locked; -1 with errno EWOULDBLOCK when another holds it.
int openLocked(const QString& file) {
    constexpr mode_t OWNERS = 0600;
    const QByteArray name = QFile::encodeName(file);
    for (;;) {
        const int opened = ::open(name.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, OWNERS);
        if (opened < 0 || ::flock(opened, LOCK_EX | LOCK_NB) != 0) {
            const int error = errno;
            if (opened >= 0) {
                ::close(opened);
            }
            errno = error;
            return -1;
        }
        struct stat here {};
        struct stat there {};
        // Its last owner may have removed the file between the two calls.
        if (::fstat(opened, &here) == 0 && ::stat(name.constData(), &there) == 0 &&
            here.st_ino == there.st_ino) {
            return opened;
        }
        ::close(opened);
    }
}

} // namespace

bool CPlaceLock::acquire(const QString& path) {
    release();
    const QString file = lockFileFor(path);
    m_nFile = openLocked(file);
    if (m_nFile >= 0) {
        m_strFile = file;
        return true;
    }
    return errno != EWOULDBLOCK;
}

void CPlaceLock::release() {
    if (m_nFile >= 0) {
        ::unlink(QFile::encodeName(m_strFile).constData()); // while it is locked
        ::close(std::exchange(m_nFile, -1));
    }
}

bool CPlaceLock::isTaken(const QString& path) {
    CPlaceLock probe;
    return !probe.acquire(path);
}
