#include "sandbox/app/main_window.h"

#include "host/veskutil.h"
#include "sandbox/app/session_memory.h"
#include "sandbox/project/project_folder.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>

namespace {

using Kind = CMapDocument::Kind;

constexpr const char* HEIGHTMAP_FILTER = "Heightmaps (*.png);;All files (*)";
constexpr const char* PROJECT_FILTER = "Map projects (project.json);;All files (*)";
constexpr const char* NEW_PROJECT_FILTER = "Folders of map projects (*)";

constexpr const char* HEIGHTS_ALONE = "%1 is a heightmap, which keeps the heights alone. Its colours, "
                                      "textures, water, details and film are "
                                      "kept only in a project.";

constexpr const char* OUTGROWN = "%1 has 8 bits a point, which hold heights up to 255, and the map is higher "
                                 "now. With 16 bits it can be saved under another name.";

/// Where a file dialog begins for a map that has no place of its own yet.
QString pathFor(const CMapDocument& document) {
    if (!document.path().isEmpty()) {
        return document.path();
    }
    return QDir(sessionmemory::folder()).filePath(document.name().remove(" (sample)"));
}

/// The pointer tells that the window is busy, for as long as this lives: a large map takes seconds.
class CBusyPointer {
public:
    CBusyPointer() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~CBusyPointer() { QApplication::restoreOverrideCursor(); }
    CBusyPointer(const CBusyPointer&) = delete;
    CBusyPointer& operator=(const CBusyPointer&) = delete;
};

/// A project is named by its folder, but its project file may be picked as well.
QString projectFolderOf(const QString& path) {
    const QFileInfo info(path);
    return info.fileName() == QLatin1String(PROJECT_FILE_NAME) ? info.absolutePath() : path;
}

} // namespace

QString CMainWindow::openMap(const QString& path) {
    const CBusyPointer busy;
    const CMapDocument::Outcome outcome = replaceMap(
        [&](const std::function<void()>& beforeSwap) { return m_document.open(path, beforeSwap); });
    if (outcome.error.isEmpty()) {
        m_bHeightsAreEnough = false;
        m_recentFiles.add(QFileInfo(path).absoluteFilePath());
        sessionmemory::keepFolder(path);
        statusBar()->showMessage(
            outcome.note.isEmpty() ? tr("%1 x %1 cells").arg(m_document.map().getGridDim()) : outcome.note);
    }
    return outcome.error;
}

CMapDocument::Outcome CMainWindow::replaceMap(
    const std::function<CMapDocument::Outcome(const std::function<void()>& beforeSwap)>& open) {
    const bool mapEditorWasOpen = m_pMapEditor->isOpen();
    const bool movieEditorWasOpen = m_pMovieEditor->isOpen();
    CMapDocument::Outcome outcome = open([this] {
        keepSight();
        closeEditors();
        m_pEditMenu->setMap(nullptr);
        m_pView->setMap(nullptr);
        vuDestroySettings(); // what it remembers is matched to the old map's address, which is about to be
                             // freed
    });
    if (outcome.error.isEmpty()) {
        adoptMap();
        if (mapEditorWasOpen) {
            m_pMapEditor->open();
        }
        if (movieEditorWasOpen) {
            m_pMovieEditor->open();
        }
    }
    return outcome;
}

void CMainWindow::offerAutosave() {
    if (m_document.abandonedCopy().isEmpty()) {
        return;
    }
    QMessageBox box(QMessageBox::Question, tr("Terrain sandbox"),
                    tr("There is an automatic copy of %1 with changes that were never saved. Open the copy?")
                        .arg(m_document.name()),
                    QMessageBox::NoButton, this);
    box.setObjectName("autosave-question");
    const QPushButton* open = box.addButton(tr("&Open Copy"), QMessageBox::AcceptRole);
    const QPushButton* remove = box.addButton(tr("&Delete Copy"), QMessageBox::DestructiveRole);
    box.addButton(tr("&Later"), QMessageBox::RejectRole); // Escape as well: asked again the next time
    box.exec();
    if (box.clickedButton() == open) {
        tell(replaceMap([&](const std::function<void()>& beforeSwap) {
                 return m_document.openAbandonedCopy(beforeSwap);
             }).error);
    } else if (box.clickedButton() == remove) {
        m_document.deleteAbandonedCopy();
    }
}

void CMainWindow::autosave() {
    // The view's own word: the toolkit's flag stays set when an editor is closed in mid-stroke.
    if (m_pView->isStroking()) {
        return; // the next time will do
    }
    const QString failure = m_document.autosave().error;
    if (!failure.isEmpty()) {
        statusBar()->showMessage(failure); // no window: the person asked for nothing
    }
}

QString CMainWindow::saveHeightmap(const QString& path) {
    const CBusyPointer busy;
    return settleSave(path, m_document.saveHeightmap(path));
}

QString CMainWindow::saveProject(const QString& folder) {
    const CBusyPointer busy;
    return settleSave(folder, m_document.saveProject(folder));
}

QString CMainWindow::settleSave(const QString& path, const CMapDocument::Outcome& outcome) {
    if (outcome.error.isEmpty()) {
        m_recentFiles.add(QFileInfo(path).absoluteFilePath());
        sessionmemory::keepFolder(path);
        statusBar()->showMessage(tr("Saved %1").arg(path));
        m_document.isModified() ? m_pEditMenu->markUnsaved() : m_pEditMenu->markSaved();
        showTitle();
    }
    return outcome.error;
}

bool CMainWindow::tell(const QString& failure) {
    if (!failure.isEmpty()) {
        QMessageBox::warning(this, tr("Terrain sandbox"), failure);
    }
    return failure.isEmpty();
}

void CMainWindow::chooseProject() {
    const QString folder = QFileInfo(pathFor(m_document)).absolutePath();
    const QString path = QFileDialog::getOpenFileName(this, tr("Open Project"), folder, tr(PROJECT_FILTER));
    if (!path.isEmpty()) {
        openAsked(projectFolderOf(path));
    }
}

void CMainWindow::chooseHeightmap() {
    const QString folder = QFileInfo(pathFor(m_document)).absolutePath();
    const QString path =
        QFileDialog::getOpenFileName(this, tr("Open Heightmap"), folder, tr(HEIGHTMAP_FILTER));
    if (!path.isEmpty()) {
        openAsked(path);
    }
}

void CMainWindow::openAsked(const QString& path) {
    if (!mayDropMap()) {
        return;
    }
    if (!tell(openMap(path))) {
        m_recentFiles.remove(path);
        return;
    }
    offerAutosave();
}

bool CMainWindow::save() {
    if (m_document.kind() == Kind::HEIGHTMAP) {
        return m_document.path().isEmpty() ? saveHeightmapAs() : saveHeightsTo(m_document.path());
    }
    return m_document.path().isEmpty() ? saveProjectAs() : tell(saveProject(m_document.path()));
}

bool CMainWindow::saveProjectAs() {
    QString path = pathFor(m_document);
    if (m_document.kind() == Kind::HEIGHTMAP) {
        path = QFileInfo(path).dir().filePath(QFileInfo(path).completeBaseName());
    }
    // A folder that is there already is entered by the dialog, where its project file can be picked; the
    // dialog then asks whether it may be replaced.
    QFileDialog dialog(this, tr("Save Project As"), QFileInfo(path).absolutePath(), tr(NEW_PROJECT_FILTER));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setLabelText(QFileDialog::FileName, tr("New folder:"));
    dialog.selectFile(QFileInfo(path).fileName());
    return dialog.exec() == QDialog::Accepted &&
           tell(saveProject(projectFolderOf(dialog.selectedFiles().first())));
}

bool CMainWindow::saveHeightmapAs() {
    QString suggested = pathFor(m_document);
    if (m_document.kind() != Kind::HEIGHTMAP) {
        suggested += ".png";
    }
    const QString path =
        QFileDialog::getSaveFileName(this, tr("Save Heightmap As"), suggested, tr(HEIGHTMAP_FILTER));
    return !path.isEmpty() && saveHeightsTo(path);
}

/// A file of 8 bits is not turned into one of 16 behind a person's back: other programs show that black.
bool CMainWindow::saveOutgrown() {
    QMessageBox box(QMessageBox::Question, tr("Terrain sandbox"), tr(OUTGROWN).arg(m_document.name()),
                    QMessageBox::Cancel, this);
    box.setObjectName("outgrown-question");
    const QPushButton* another = box.addButton(tr("Save &Heightmap As..."), QMessageBox::AcceptRole);
    const QPushButton* project = box.addButton(tr("Save as &Project..."), QMessageBox::AcceptRole);
    box.exec();
    if (box.clickedButton() == project) {
        return saveProjectAs();
    }
    return box.clickedButton() == another && saveHeightmapAs();
}

/// Of a project the heights are saved as a copy, so that nothing of it can get lost; but what else a
/// heightmap has grown here would have no place to stay.
bool CMainWindow::saveHeightsTo(const QString& path) {
    if (QFileInfo(path).absoluteFilePath() == m_document.path() && m_document.hasOutgrownItsFile()) {
        return saveOutgrown();
    }
    const bool outgrown = m_document.kind() != Kind::PROJECT && m_document.hasOtherChanges();
    if (!outgrown || m_bHeightsAreEnough) {
        return tell(saveHeightmap(path));
    }
    QMessageBox box(QMessageBox::Question, tr("Terrain sandbox"), tr(HEIGHTS_ALONE).arg(m_document.name()),
                    QMessageBox::Cancel, this);
    box.setObjectName("heights-question");
    const QPushButton* project = box.addButton(tr("Save as &Project..."), QMessageBox::AcceptRole);
    const QPushButton* heights = box.addButton(tr("Save &Heights Only"), QMessageBox::AcceptRole);
    box.exec();
    if (box.clickedButton() == project) {
        return saveProjectAs();
    }
    m_bHeightsAreEnough = box.clickedButton() == heights; // asked once for each map
    return m_bHeightsAreEnough && tell(saveHeightmap(path));
}

bool CMainWindow::mayDropMap() {
    if (!m_document.isModified()) {
        return true;
    }
    const bool outgrown = m_document.kind() == Kind::HEIGHTMAP && m_document.hasOtherChanges();
    const QString question = tr(outgrown ? HEIGHTS_ALONE : "Save the changes to %1 first?");
    QMessageBox box(QMessageBox::Question, tr("Terrain sandbox"), question.arg(m_document.name()),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    box.setDefaultButton(QMessageBox::Save);
    box.setObjectName("unsaved-question");
    const QAbstractButton* heights = nullptr;
    if (outgrown) {
        box.button(QMessageBox::Save)->setText(tr("Save as &Project..."));
        heights = box.addButton(tr("Save &Heights Only"), QMessageBox::AcceptRole);
    }
    const int answer = box.exec();
    if (heights != nullptr && box.clickedButton() == heights) {
        m_bHeightsAreEnough = true;
        return save();
    }
    if (answer == QMessageBox::Save) {
        return outgrown ? saveProjectAs() : save();
    }
    return answer == QMessageBox::Discard;
}

void CMainWindow::fillRecentMenu(QMenu& menu) {
    menu.clear();
    for (const QString& path : m_recentFiles.paths()) {
        const QFileInfo info(path);
        QString text = tr("%1 - in %2").arg(info.fileName(), info.absolutePath());
        text.replace('&', "&&"); // a name's own, not the mark of a shortcut
        QAction* action = menu.addAction(text, this, [this, path] { openAsked(path); });
        action->setEnabled(info.exists());
    }
    if (menu.isEmpty()) {
        menu.addAction(tr("(none)"))->setEnabled(false);
    }
}
