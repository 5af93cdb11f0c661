#include "sandbox/unsaved/project_folder_dialog.h"

#include "sandbox/project/project_folder.h"

#include <QDir>
#include <QFileInfo>
#include <QMessageBox>

CProjectFolderDialog::CProjectFolderDialog(QWidget* window, const QString& suggestedFolder)
    : QFileDialog(window, tr("Save Project As"), QFileInfo(suggestedFolder).absolutePath(),
                  tr("Folders of map projects (*)")) {
    setOption(DontUseNativeDialog); // the system's knows no such folders
    setAcceptMode(AcceptSave);
    setLabelText(FileName, tr("Folder:"));
    selectFile(QFileInfo(suggestedFolder).fileName());
}

QString CProjectFolderDialog::folderOf(const QString& path) {
    const QFileInfo info(path);
    return info.fileName() == QLatin1String(PROJECT_FILE_NAME) ? info.absolutePath() : path;
}

void CProjectFolderDialog::accept() {
    const QString chosen = folder();
    const QFileInfo info(chosen);
    const bool isProject = QFileInfo::exists(chosen + '/' + PROJECT_FILE_NAME);
    if (info.exists() && !info.isDir()) {
        QMessageBox::warning(this, windowTitle(),
                             tr("%1 is a file. A project goes into a folder.").arg(info.fileName()));
    } else if (info.isDir() && !isProject && !QDir(chosen).isEmpty()) {
        QMessageBox::warning(this, windowTitle(),
                             tr("%1 is not empty, and what is in it is no project. A project goes into a "
                                "folder of its own.")
                                 .arg(info.fileName()));
    } else if (!isProject || QMessageBox::question(
                                 this, windowTitle(),
                                 tr("There is a project in %1 already. Replace it?").arg(info.fileName())) ==
                                 QMessageBox::Yes) {
        done(Accepted); // the dialog's own would enter a folder that is there
    }
}
