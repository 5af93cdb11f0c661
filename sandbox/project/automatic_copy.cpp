#include "sandbox/project/automatic_copy.h"

#include "sandbox/files/file_operations.h"
#include "sandbox/files/safe_file.h"
#include "sandbox/files/user_data.h"
#include "sandbox/project/project_limits.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr int MOST_COPIES = 99; // by programs that run or were not asked about yet
constexpr const char* MARK = "automaticCopy";
constexpr const char* IN_USE = "in-use";

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

/// The mark in a copy's project file; no object where there is none.
QJsonObject markIn(const QString& folder) {
    QByteArray text;
    const QString reason =
        readWholeFile(QDir(folder).filePath(PROJECT_FILE_NAME), LARGEST_PROJECT_FILE, text);
    return reason.isEmpty() ? QJsonDocument::fromJson(text).object()[MARK].toObject() : QJsonObject();
}

CopyOrigin originFrom(const QJsonObject& mark) {
    CopyOrigin origin;
    origin.place = mark["place"].toString();
    origin.name = mark["name"].toString();
    origin.isHeightmap = mark["heightmap"].toBool();
    origin.bits = mark["bits"].toInt();
    for (const QJsonValue& file : mark["files"].toArray()) {
        origin.files.append(file.toString());
    }
    origin.stamp = mark["stamp"].toString();
    return origin;
}

qint64 sizeOf(const QString& folder) {
    qint64 bytes = 0;
    for (const QFileInfo& file : QDir(folder).entryInfoList(QDir::Files)) {
        bytes += file.size();
    }
    return bytes;
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

QString CAutomaticCopy::room() {
    return userDataFolder("unsaved");
}

QString CAutomaticCopy::claim() {
    leave();
    const QString all = room();
    for (int number = 1; number <= MOST_COPIES; ++number) {
        const QString folder = all + '/' + QString::number(number);
        if (CFileOperations::instance().makeFolder(QFile::encodeName(folder).constData()) != 0) {
            if (errno != EEXIST) {
                return reasonOfError(errno);
            }
            if (isLeftEmpty(folder) && takeOver(folder)) {
                return {};
            }
            continue; // a copy of another program, or one that waits for a decision
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

std::vector<AbandonedCopy> CAutomaticCopy::abandoned() {
    std::vector<AbandonedCopy> found;
    for (const QFileInfo& entry : QDir(room()).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString folder = entry.absoluteFilePath();
        const QJsonObject mark = markIn(folder);
        if (!mark.isEmpty() && isOwnedByNobody(folder)) {
            const QFileInfo file(QDir(folder).filePath(PROJECT_FILE_NAME));
            found.push_back({folder, originFrom(mark), file.lastModified(), sizeOf(folder)});
        }
    }
    std::ranges::sort(found, std::ranges::greater(), &AbandonedCopy::time);
    return found;
}

void CAutomaticCopy::mark(Project& project, const CopyOrigin& origin) {
    project.original[MARK] = QJsonObject{{"place", origin.place},
                                         {"name", origin.name},
                                         {"heightmap", origin.isHeightmap},
                                         {"bits", origin.bits},
                                         {"files", QJsonArray::fromStringList(origin.files)},
                                         {"stamp", origin.stamp}};
}

void CAutomaticCopy::unmark(Project& project) {
    project.original.remove(MARK);
}
