#include "sandbox/project/automatic_copy.h"

#include "sandbox/files/file_operations.h"
#include "sandbox/files/safe_file.h"
#include "sandbox/project/project_limits.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr int MOST_COPIES = 9; // of one map, by programs that run or were not asked about yet
constexpr const char* MARK = "automaticCopy";
constexpr const char* IN_USE = "in-use";

QString folderFor(const QString& mapPath, int number) {
    return number == 1 ? mapPath + ".autosave" : QString("%1.autosave-%2").arg(mapPath).arg(number);
}

QByteArray inUseFile(const QString& folder) {
    return QFile::encodeName(QDir(folder).filePath(IN_USE));
}

/// The file opened and locked, or -1 when another program holds it.
int lockInUse(const QString& folder, int flags) {
    constexpr mode_t OWNERS = 0600;
    const int file = ::open(inUseFile(folder).constData(), O_RDWR | O_NOFOLLOW | O_CLOEXEC | flags, OWNERS);
    if (file >= 0 && ::flock(file, LOCK_EX | LOCK_NB) != 0) {
        ::close(file);
        return -1;
    }
    return file;
}

bool isMarked(const QString& folder) {
    QByteArray text;
    return readWholeFile(QDir(folder).filePath(PROJECT_FILE_NAME), LARGEST_PROJECT_FILE, text).isEmpty() &&
           QJsonDocument::fromJson(text).object().contains(MARK);
}

/// A folder whose owner ended before its first copy was whole: there is nothing in it to decide about.
bool isLeftEmpty(const QString& folder) {
    return QFileInfo::exists(QFile::decodeName(inUseFile(folder))) && !QDir(folder).exists(PROJECT_FILE_NAME);
}

bool isOwnedByNobody(const QString& folder) {
    if (!QFileInfo::exists(QFile::decodeName(inUseFile(folder)))) {
        return true;
    }
    const int file = lockInUse(folder, 0);
    if (file >= 0) {
        ::close(file);
    }
    return file >= 0;
}

} // namespace

QString CAutomaticCopy::claim(const QString& mapPath) {
    leave();
    for (int number = 1; number <= MOST_COPIES; ++number) {
        const QString folder = folderFor(mapPath, number);
        if (CFileOperations::instance().makeFolder(QFile::encodeName(folder).constData()) != 0) {
            if (errno != EEXIST) {
                return reasonOfError(errno);
            }
            if (isLeftEmpty(folder) && takeOver(folder)) {
                return {};
            }
            continue; // a copy of another program, one that waits for a decision, or a person's own folder
        }
        m_nInUse = lockInUse(folder, O_CREAT | O_EXCL);
        if (m_nInUse < 0) {
            const QString reason = reasonOfError(errno);
            QDir().rmdir(folder);
            return reason;
        }
        m_strFolder = folder;
        return {};
    }
    return QString("there are %1 such folders already").arg(MOST_COPIES);
}

bool CAutomaticCopy::takeOver(const QString& folder) {
    leave();
    m_nInUse = lockInUse(folder, O_CREAT);
    m_strFolder = isOwned() ? folder : QString();
    return isOwned();
}

void CAutomaticCopy::leave() {
    if (isOwned()) {
        ::close(std::exchange(m_nInUse, -1));
    }
    m_strFolder.clear();
}

void CAutomaticCopy::remove() {
    if (!isOwned()) {
        return;
    }
    static_cast<void>(
        removeFile(QFile::decodeName(inUseFile(m_strFolder)))); // first: the folder goes with the rest
    removeProject(m_strFolder);
    leave();
}

QString CAutomaticCopy::findAbandoned(const QString& mapPath) {
    QString newest;
    QDateTime newestTime;
    for (int number = 1; number <= MOST_COPIES; ++number) {
        const QString folder = folderFor(mapPath, number);
        const QFileInfo file(QDir(folder).filePath(PROJECT_FILE_NAME));
        const bool isNewer = file.isFile() && (newest.isEmpty() || file.lastModified() > newestTime);
        if (isNewer && isMarked(folder) && isOwnedByNobody(folder)) {
            newest = folder;
            newestTime = file.lastModified();
        }
    }
    return newest;
}

void CAutomaticCopy::mark(Project& project) {
    project.original[MARK] = true;
}

void CAutomaticCopy::unmark(Project& project) {
    project.original.remove(MARK);
}
