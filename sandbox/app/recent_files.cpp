#include "sandbox/app/recent_files.h"

#include <QSettings>

namespace {

constexpr const char* KEY = "recentFiles";

}

QStringList CRecentFiles::paths() const {
    return QSettings().value(KEY).toStringList().mid(0, MAX_FILES);
}

void CRecentFiles::add(const QString& path) {
    QStringList files = paths();
    files.removeAll(path);
    files.prepend(path);
    QSettings().setValue(KEY, files.mid(0, MAX_FILES));
}

void CRecentFiles::remove(const QString& path) {
    QStringList files = paths();
    files.removeAll(path);
    QSettings().setValue(KEY, files);
}
