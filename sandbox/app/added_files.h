#pragma once

#include "sandbox/files/safe_file.h"
#include "sandbox/project/project_folder.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

/// The folders and files that a save adds beside the project itself; gone again when the save fails.
class CAddedFiles {
public:
    explicit CAddedFiles(const QString& folder) {
        for (const QString& name :
             {folder + '/' + PROJECT_TEXTURE_FOLDER, folder + '/' + PROJECT_SOUND_FOLDER, folder}) {
            if (!QFileInfo::exists(name)) {
                m_folders.append(name);
            }
        }
    }
    ~CAddedFiles() {
        for (const QString& file : files) {
            static_cast<void>(removeFile(file));
        }
        for (const QString& folder : m_folders) {
            QDir().rmdir(folder); // only when nothing is in it
        }
    }
    CAddedFiles(const CAddedFiles&) = delete;
    CAddedFiles& operator=(const CAddedFiles&) = delete;

    QStringList files;

    void keep() {
        files.clear();
        m_folders.clear();
    }

private:
    QStringList m_folders;
};
