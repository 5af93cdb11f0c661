#pragma once

#include <QFileDialog>

/// Asks for the folder that a project is to be saved to: a new one, one with nothing in it, or, after a
/// question, that of a project. Another is refused with the reason, and the dialog stays.
class CProjectFolderDialog : public QFileDialog {
    Q_OBJECT

public:
    CProjectFolderDialog(QWidget* window, const QString& suggestedFolder);

    /// The folder of the project at a path, which may also be that of its project file.
    static QString folderOf(const QString& path);
    /// The chosen one, once the dialog was accepted.
    QString folder() const { return folderOf(selectedFiles().first()); }

protected:
    void accept() override;
};
