#include "sandbox/app/file_places.h"

#include "sandbox/project/project_folder.h"

#include <QFileInfo>

namespace {

const QString& samples() {
    static const QString FOLDER = QStringLiteral(SANDBOX_SAMPLES);
    return FOLDER;
}

} // namespace

bool isSample(const QString& path) {
    return QFileInfo(path).canonicalFilePath().startsWith(QFileInfo(samples()).canonicalFilePath() + '/');
}

QStringList soundFoldersOf(const QString& mapFolder) {
    QStringList folders = {samples() + '/' + PROJECT_SOUND_FOLDER};
    if (!mapFolder.isEmpty()) {
        folders.prepend(mapFolder + '/' + PROJECT_SOUND_FOLDER);
    }
    return folders;
}

QStringList textureFoldersOf(const QString& mapFolder) {
    QStringList folders = {samples() + '/' + PROJECT_TEXTURE_FOLDER};
    if (!mapFolder.isEmpty()) {
        folders.prepend(mapFolder);
        folders.prepend(mapFolder + '/' + PROJECT_TEXTURE_FOLDER);
    }
    return folders;
}
