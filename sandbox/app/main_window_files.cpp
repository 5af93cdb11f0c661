#include "sandbox/app/main_window.h"

#include "host/veskutil.h"
#include "sandbox/app/session_memory.h"
#include "sandbox/unsaved/project_folder_dialog.h"
#include "sandbox/unsaved/unsaved_work.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>

namespace {

using Kind = CMapDocument::Kind;

constexpr const char* HEIGHTMAP_FILTER = "Heightmaps (*.png);;All files (*)";
constexpr const char* PROJECT_FILTER = "Map projects (project.json);;All files (*)";

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

} // namespace

QString CMainWindow::openMap(const QString& path) {
    const CMapDocument::Outcome outcome = replaceMap(
        [&](const std::function<void()>& beforeSwap) { return m_document.open(path, beforeSwap); });
    if (outcome.error.isEmpty()) {
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
        m_bHeightsAreEnough = false;
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

void CMainWindow::offerAutosave(const QString& place) {
    if (const auto copy = askAboutCopies(*this, abandonedCopies(place))) {
        if (mayDropMap()) {
            openAbandoned(*copy);
        }
    }
}

void CMainWindow::openAbandoned(const AbandonedCopy& copy) {
    const CMapDocument::Outcome outcome = replaceMap(
        [&](const std::function<void()>& beforeSwap) { return m_document.openCopy(copy, beforeSwap); });
    tell(outcome.error);
    if (!outcome.note.isEmpty()) {
        statusBar()->showMessage(outcome.note);
    }
}

void CMainWindow::startNew() {
    const QStringList sizes = {"64", "128", "256", "512", "1024", "2048", "4096", "8192"};
    bool ok = false;
    const QString size =
        mayDropMap()
            ? QInputDialog::getItem(this, tr("New Map"), tr("Cells along each side:"), sizes, 1, false, &ok)
            : QString();
    if (ok) {
        tell(replaceMap([&](const std::function<void()>& beforeSwap) {
                 return m_document.startAnew(size.toInt(), beforeSwap);
             }).error);
    }
}

void CMainWindow::autosave() {
    // The view's own word: the toolkit's flag stays set when an editor is closed in mid-stroke.
    if (m_pView->isStroking() || m_bIsBusy) {
        return; // the next time will do
    }
    const QString failure = m_document.autosave().error;
    if (!failure.isEmpty()) {
        statusBar()->showMessage(failure); // no window: the person asked for nothing
    }
}

QString CMainWindow::saveHeightmap(const QString& path) {
    return settleSave(path, m_document.saveHeightmap(path));
}

QString CMainWindow::saveProject(const QString& folder) {
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
    if (failure == CMapDocument::CALLED_OFF) {
        statusBar()->showMessage(failure); // no window: the person wanted it so
    } else if (!failure.isEmpty()) {
        QMessageBox::warning(this, tr("Terrain sandbox"), failure);
    }
    return failure.isEmpty();
}

void CMainWindow::chooseProject() {
    const QString folder = QFileInfo(pathFor(m_document)).absolutePath();
    const QString path = QFileDialog::getOpenFileName(this, tr("Open Project"), folder, tr(PROJECT_FILTER));
    if (!path.isEmpty()) {
        openAsked(CProjectFolderDialog::folderOf(path));
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
    if (!mayDropMap() || !mayOpen(path)) {
        return;
    }
    const QString failure = openMap(path);
    if (!tell(failure)) {
        if (failure != CMapDocument::CALLED_OFF) {
            m_recentFiles.remove(path);
        }
        return;
    }
    if (!m_document.path().isEmpty()) {
        offerAutosave(m_document.path());
    }
}

/// What is open in another program is opened as a copy, if that is wanted.
bool CMainWindow::mayOpen(const QString& path) {
    if (!m_document.place().isOpenElsewhere(path)) {
        return true;
    }
    QMessageBox box(QMessageBox::Question, tr("Terrain sandbox"),
                    tr("%1 is open in another program. Opened here as well, it becomes a copy that is saved "
                       "under another name.")
                        .arg(QFileInfo(path).fileName()),
                    QMessageBox::Cancel, this);
    box.setObjectName("open-elsewhere-question");
    const QPushButton* copy = box.addButton(tr("Open as &Copy"), QMessageBox::AcceptRole);
    box.exec();
    return box.clickedButton() == copy;
}

/// What another program wrote to the map's place since it was opened is not lost unasked.
bool CMainWindow::mayOverwrite(const QString& path) {
    if (QFileInfo(path).absoluteFilePath() != m_document.path() || !m_document.place().hasChangedOnDisk()) {
        return true;
    }
    QMessageBox box(QMessageBox::Warning, tr("Terrain sandbox"),
                    tr("%1 was changed on the disk by another program since it was opened here. To save now "
                       "replaces what that has written.")
                        .arg(m_document.name()),
                    QMessageBox::Cancel, this);
    box.setObjectName("changed-question");
    const QPushButton* replace = box.addButton(tr("&Replace"), QMessageBox::DestructiveRole);
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    return box.clickedButton() == replace;
}

bool CMainWindow::save() {
    if (m_document.kind() == Kind::HEIGHTMAP) {
        return m_document.path().isEmpty() ? saveHeightmapAs() : saveHeightsTo(m_document.path());
    }
    return m_document.path().isEmpty() ? saveProjectAs() : saveProjectTo(m_document.path());
}

bool CMainWindow::saveProjectTo(const QString& folder) {
    return mayOverwrite(folder) && tell(saveProject(folder));
}

bool CMainWindow::saveProjectAs() {
    QString path = pathFor(m_document);
    if (m_document.kind() == Kind::HEIGHTMAP) {
        path = QFileInfo(path).dir().filePath(QFileInfo(path).completeBaseName());
    }
    CProjectFolderDialog dialog(this, path);
    return dialog.exec() == QDialog::Accepted && saveProjectTo(dialog.folder());
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
        return mayOverwrite(path) && tell(saveHeightmap(path));
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
    return m_bHeightsAreEnough && mayOverwrite(path) && tell(saveHeightmap(path));
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
