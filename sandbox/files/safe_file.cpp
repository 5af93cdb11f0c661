#include "sandbox/files/safe_file.h"

#include "sandbox/core/reason_text.h"
#include "sandbox/files/file_operations.h"

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr mode_t NEW_FILE_MODE = 0666; // less the umask
constexpr mode_t PERMISSIONS = 07777;

CFileOperations& disk() {
    return CFileOperations::instance();
}

QString lastReason() {
    return reasonOfError(errno);
}

/// An open file that is removed again unless it is kept.
class CNewFile {
public:
    CNewFile(QByteArray path, int file) : m_path(std::move(path)), m_nFile(file) {}
    ~CNewFile() {
        close();
        if (!m_bKept && m_bMade) {
            disk().unlink(m_path.constData());
        }
    }
    CNewFile(const CNewFile&) = delete;
    CNewFile& operator=(const CNewFile&) = delete;

    const QByteArray& path() const { return m_path; }
    int file() const { return m_nFile; }
    void keep() { m_bKept = true; }

    /// All bytes on the disk, and as many as there should be.
    QString fill(QByteArrayView bytes) {
        for (qsizetype done = 0; done < bytes.size();) {
            const ssize_t taken =
                disk().write(m_nFile, bytes.data() + done, static_cast<std::size_t>(bytes.size() - done));
            if (taken < 0 && errno == EINTR) {
                continue;
            }
            if (taken <= 0) {
                return taken < 0 ? lastReason() : reasonOfError(ENOSPC);
            }
            done += taken;
        }
        if (disk().sync(m_nFile) != 0) {
            return lastReason();
        }
        struct stat state {};
        if (::fstat(m_nFile, &state) != 0) {
            return lastReason();
        }
        return state.st_size == bytes.size() ? QString() : QString("the disk did not keep all of it");
    }

    /// Closing tells of a failed write on file systems that write late.
    QString close() {
        const int file = std::exchange(m_nFile, -1);
        return file < 0 || disk().close(file) == 0 ? QString() : lastReason();
    }

private:
    QByteArray m_path;
    int m_nFile;
    bool m_bMade = m_nFile >= 0;
    bool m_bKept = false;
};

int openNew(const QByteArray& path) {
    return disk().open(path.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, NEW_FILE_MODE);
}

QByteArray nameFor(const QString& path) {
    return QFile::encodeName(path);
}

/// The file itself where `path` is a link to one.
QString targetOf(const QString& path) {
    const QString target = QFileInfo(path).canonicalFilePath();
    return target.isEmpty() ? path : target;
}

/// Whether what stands at `path` may be replaced.
QString checkReplaceable(const QByteArray& path, mode_t& mode) {
    struct stat state {};
    if (::stat(path.constData(), &state) != 0) {
        return errno == ENOENT ? QString() : lastReason();
    }
    if (!S_ISREG(state.st_mode)) {
        return "it is not a file";
    }
    mode = state.st_mode & PERMISSIONS;
    return ::access(path.constData(), W_OK) == 0 ? QString() : lastReason();
}

QByteArray partNameFor(const QString& path) {
    return nameFor(
        QString("%1.part-%2").arg(path).arg(QRandomGenerator::global()->generate(), 8, 16, QChar('0')));
}

} // namespace

QString reasonOfError(int error) {
    if (error == ENOSPC || error == EDQUOT) {
        return "the disk is full";
    }
    return reasonText(QString::fromLocal8Bit(std::strerror(error)));
}

QString readWholeFile(const QString& path, std::int64_t largest, QByteArray& bytes) {
    const int file = ::open(nameFor(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (file < 0) {
        return errno == ENXIO ? QString("it is not a file") : lastReason(); // a pipe or socket without an end
    }
    QFile closer;
    closer.open(file, QIODevice::ReadOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle);
    struct stat state {};
    if (::fstat(file, &state) != 0) {
        return lastReason();
    }
    if (!S_ISREG(state.st_mode)) {
        return "it is not a file";
    }
    if (state.st_size > largest) {
        return QString("it is larger than %1 MB").arg(largest / 1024 / 1024);
    }
    QByteArray read(static_cast<qsizetype>(state.st_size), Qt::Uninitialized);
    for (qsizetype done = 0; done < read.size();) {
        const ssize_t got = ::read(file, read.data() + done, static_cast<std::size_t>(read.size() - done));
        if (got < 0) {
            return lastReason();
        }
        if (got == 0) {
            return "it became shorter while it was read";
        }
        done += got;
    }
    bytes = std::move(read);
    return {};
}

void sweepParts(const QString& path) {
    const QFileInfo info(path);
    const QRegularExpression part(QRegularExpression::anchoredPattern(
        QRegularExpression::escape(info.fileName()) + "\\.part-[0-9a-f]{8}"));
    const QStringList names = info.dir().entryList(QDir::Files | QDir::Hidden | QDir::NoSymLinks);
    for (const QString& name : names.filter(part)) {
        const QByteArray found = nameFor(info.dir().filePath(name));
        const int file = ::open(found.constData(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC);
        if (file < 0) {
            continue;
        }
        // A writer at work holds a lock on its file.
        if (::flock(file, LOCK_EX | LOCK_NB) == 0) {
            disk().unlink(found.constData());
        }
        ::close(file);
    }
}

QString replaceFile(const QString& path, QByteArrayView bytes) {
    const QString target = targetOf(path);
    const QByteArray name = nameFor(target);
    mode_t mode = 0;
    if (const QString reason = checkReplaceable(name, mode); !reason.isEmpty()) {
        return reason;
    }
    sweepParts(target);
    const QByteArray partName = partNameFor(target);
    CNewFile part(partName, openNew(partName));
    if (part.file() < 0) {
        return lastReason();
    }
    static_cast<void>(::flock(part.file(), LOCK_EX | LOCK_NB)); // says that its writer lives
    if (mode != 0) {
        static_cast<void>(::fchmod(part.file(), mode)); // not the owner: the file is ours from now on
    }
    QString reason = part.fill(bytes);
    if (reason.isEmpty() && disk().rename(partName.constData(), name.constData()) != 0) {
        reason = lastReason();
    }
    if (!reason.isEmpty()) {
        return reason;
    }
    part.keep();
    return syncFolder(QFileInfo(target).path());
}

QString makeFile(const QString& path, QByteArrayView bytes, bool& taken) {
    const QByteArray name = nameFor(path);
    CNewFile file(name, openNew(name));
    taken = file.file() < 0 && errno == EEXIST;
    if (file.file() < 0) {
        return lastReason();
    }
    QString reason = file.fill(bytes);
    if (reason.isEmpty()) {
        reason = file.close();
    }
    if (reason.isEmpty()) {
        file.keep();
    }
    return reason;
}

QString removeFile(const QString& path) {
    return disk().unlink(nameFor(path).constData()) == 0 || errno == ENOENT ? QString() : lastReason();
}

QString makeFolder(const QString& path, bool& made) {
    const QFileInfo info(path);
    made = !info.exists();
    if (!made) {
        return info.isDir() ? QString() : QString("it is not a folder");
    }
    bool madeAbove = false;
    if (const QString above = info.absolutePath(); above != info.absoluteFilePath()) {
        if (const QString reason = makeFolder(above, madeAbove); !reason.isEmpty()) {
            return reason;
        }
    }
    return disk().makeFolder(nameFor(path).constData()) == 0 || errno == EEXIST ? QString() : lastReason();
}

QString syncFolder(const QString& path) {
    const int folder = disk().open(nameFor(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
    if (folder < 0) {
        return lastReason();
    }
    const bool synced =
        disk().sync(folder) == 0 || errno == EINVAL; // file systems that cannot: nothing to wait for
    const QString reason = synced ? QString() : lastReason();
    disk().close(folder);
    return reason;
}
