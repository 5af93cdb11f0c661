#include "sandbox/files/user_data.h"

#include "sandbox/files/safe_file.h"

#include <QStandardPaths>

QString userDataFolder(const QString& name) {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + '/' + name;
    bool made = false;
    static_cast<void>(makeFolder(folder, made)); // who writes there is told why that fails
    return folder;
}
