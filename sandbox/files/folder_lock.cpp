#include "sandbox/files/folder_lock.h"

#include "sandbox/files/safe_file.h"

#include <QFile>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>
#include <unistd.h>
#include <utility>

QString CFolderLock::acquire(const QString& folder, Kind kind, std::chrono::milliseconds patience) {
    using namespace std::chrono_literals;
    release();
    m_nFolder = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (m_nFolder < 0) {
        return reasonOfError(errno);
    }
    const auto end = std::chrono::steady_clock::now() + patience;
    const int operation = (kind == Kind::SHARED ? LOCK_SH : LOCK_EX) | LOCK_NB;
    while (::flock(m_nFolder, operation) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR) {
            return {}; // no locks on this file system
        }
        if (std::chrono::steady_clock::now() >= end) {
            release();
            return "another program is working on it";
        }
        std::this_thread::sleep_for(5ms);
    }
    return {};
}

void CFolderLock::release() {
    if (m_nFolder >= 0) {
        ::close(std::exchange(m_nFolder, -1));
    }
}
