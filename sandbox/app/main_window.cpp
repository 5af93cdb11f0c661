#include "sandbox/app/main_window.h"

#include "host/veskutil.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QSpinBox>
#include <QStatusBar>
#include <cmath>

namespace {

constexpr const char* FILE_FILTER = "Heightmaps (*.png);;All files (*)";
constexpr double EASY_UNIT = 0.01; // world units that a pixel of drag should move the ground at least

HWND handleOf(const QWidget& widget) {
    return reinterpret_cast<HWND>(widget.winId());
}

} // namespace

CMainWindow::CMainWindow() : m_pView(new CMapView(this)) {
    setCentralWidget(m_pView);
    makeFileMenu();
    makeEditorMenu();
    makeViewMenu();
    makeHelpMenu();
    makeToolBar();
    makeStatusBar();
    connectView();
    adoptMap();
    // The panel's own buttons change the map and close the panel without a word to the host, so the state is
    // followed whenever the application falls idle.
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            &CMainWindow::followState);
}

CMainWindow::~CMainWindow() {
    closeEditor();
    m_pView->setMap(nullptr);
    vuDestroySettings();
}

void CMainWindow::connectView() {
    connect(m_pView, &CMapView::pointerMoved, this, &CMainWindow::showPlace);
    connect(m_pView, &CMapView::paceMeasured, this, [this](double picturesPerSecond) {
        m_pPace->setText(tr("%1 fps").arg(picturesPerSecond, 0, 'f', 0));
    });
}

QString CMainWindow::openMap(const QString& path) {
    const bool editorWasOpen = vuIsEditorActive();
    const CMapDocument::Outcome outcome = m_document.open(path, [this] {
        closeEditor();
        m_pView->setMap(nullptr);
        vuDestroySettings(); // what it remembers is matched to the old map's address, which is about to be
                             // freed
    });
    if (!outcome.error.isEmpty()) {
        return outcome.error;
    }
    adoptMap();
    m_recentFiles.add(QFileInfo(path).absoluteFilePath());
    if (editorWasOpen) {
        openEditor();
    }
    const CMemoryMap& map = m_document.map();
    statusBar()->showMessage(outcome.note.isEmpty() ? tr("%1 x %1 cells").arg(map.getGridDim())
                                                    : outcome.note);
    return {};
}

void CMainWindow::adoptMap() {
    m_pView->setMap(&m_document.map());
    const QSignalBlocker quiet(m_pWaterLevel);
    m_pWaterLevel->setValue(m_document.waterLevel());
    const double wanted = EASY_UNIT / m_document.map().heightScale;
    m_pUnitsPerPixel->setCurrentIndex(
        std::clamp(static_cast<int>(std::ceil(std::log2(wanted) / 2.0)), 0, m_pUnitsPerPixel->count() - 1));
    showTitle();
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
        statusBar()->showMessage(tr("Saved %1").arg(path));
        showTitle();
    }
    return outcome.error;
}

void CMainWindow::tell(const QString& failure) {
    if (!failure.isEmpty()) {
        QMessageBox::warning(this, tr("Terrain sandbox"), failure);
    }
}

void CMainWindow::chooseMap() {
    const QString folder = QFileInfo(m_document.path()).absolutePath();
    const QString path = QFileDialog::getOpenFileName(this, tr("Open Heightmap"), folder, tr(FILE_FILTER));
    if (!path.isEmpty()) {
        openAsked(path);
    }
}

void CMainWindow::openAsked(const QString& path) {
    if (!mayDropMap()) {
        return;
    }
    const QString failure = openMap(path);
    if (!failure.isEmpty()) {
        m_recentFiles.remove(path);
        tell(failure);
    }
}

bool CMainWindow::save() {
    if (m_document.path().isEmpty()) {
        return saveAs();
    }
    const QString failure = saveHeightmap(m_document.path());
    tell(failure);
    return failure.isEmpty();
}

bool CMainWindow::saveAs() {
    const QString path =
        QFileDialog::getSaveFileName(this, tr("Save Heightmap As"), m_document.path(), tr(FILE_FILTER));
    if (path.isEmpty()) {
        return false;
    }
    const QString failure = saveHeightmap(path);
    tell(failure);
    return failure.isEmpty();
}

bool CMainWindow::mayDropMap() {
    if (m_document.hasHeightChanges()) {
        const auto answer = QMessageBox::question(
            this, tr("Terrain sandbox"), tr("Save the changes to %1 first?").arg(m_document.name()),
            QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
        return answer == QMessageBox::Discard || (answer == QMessageBox::Save && save());
    }
    if (m_document.hasOtherChanges()) {
        const auto answer = QMessageBox::question(
            this, tr("Terrain sandbox"),
            tr("A heightmap keeps the heights only. Drop the colours, textures, water and details of %1?")
                .arg(m_document.name()),
            QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Cancel);
        return answer == QMessageBox::Discard;
    }
    return true;
}

void CMainWindow::closeEvent(QCloseEvent* event) {
    if (!mayDropMap()) {
        event->ignore();
        return;
    }
    closeEditor();
    event->accept();
}

void CMainWindow::toggleEditor(bool open) {
    open ? openEditor() : closeEditor();
}

void CMainWindow::openEditor() {
    const QByteArray folder = m_document.textureFolder().toUtf8();
    vuCreateEditor(handleOf(*this), &m_document.map(), CString(folder.constData()), nullptr, true, nullptr);
    followState();
}

void CMainWindow::closeEditor() {
    vuDestroyEditor();
    m_document.map().clearEditCursors();
    followState();
}

void CMainWindow::followState() {
    const bool open = vuIsEditorActive();
    if (m_pEditorAction->isChecked() != open) {
        m_pEditorAction->setChecked(open);
        if (!open) {
            m_document.map().clearEditCursors(); // a cursor without an editor would promise a stroke
        }
    }
    if (isWindowModified() != m_document.isModified()) {
        showTitle();
    }
    m_pView->noticeChanges();
}

void CMainWindow::showTitle() {
    setWindowTitle(tr("%1[*] - Terrain sandbox").arg(m_document.name()));
    setWindowModified(m_document.isModified());
}

void CMainWindow::showPlace(const std::optional<CTerrainHit>& hit) {
    if (!hit.has_value()) {
        m_pPlace->clear();
        return;
    }
    const CMemoryMap& map = m_document.map();
    m_pPlace->setText(tr("cell %1, %2   height %3   slope %4°")
                          .arg(hit->x)
                          .arg(hit->z)
                          .arg(hit->point[1] / static_cast<double>(map.heightScale), 0, 'f', 1)
                          .arg(static_cast<double>(map.getGradient(hit->x, hit->z)), 0, 'f', 0));
}
