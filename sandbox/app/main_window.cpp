#include "sandbox/app/main_window.h"

#include "engine/memory/engine_directories.h"
#include "engine/qx_texture.h"
#include "host/veskutil.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QSpinBox>
#include <QStatusBar>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cmath>

namespace {

constexpr double MIN_HEIGHT_PER_PIXEL =
    0.01; // world units that a pixel of drag should move the ground at least

constexpr std::chrono::minutes AUTOSAVE_PERIOD(1);

/// The panel opens over the middle of its host, where the ground is. At the view's left edge it is out of the
/// way and has room for its right half.
constexpr QPoint FIRST_PANEL_POSITION(12, 12);

/// The map editor's window, or null.
QWidget* findPanel() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto found = std::ranges::find(windows, QStringLiteral("dialog-212"),
                                         [](const QWidget* w) { return w->objectName(); });
    return found != windows.end() ? *found : nullptr;
}

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
    auto* autosaves = new QTimer(this);
    autosaves->setObjectName("autosave");
    connect(autosaves, &QTimer::timeout, this, &CMainWindow::autosave);
    autosaves->start(AUTOSAVE_PERIOD);
}

CMainWindow::~CMainWindow() {
    closeEditor();
    m_pView->setMap(nullptr);
    vuDestroySettings();
}

void CMainWindow::connectView() {
    connect(m_pView, &CMapView::pointerMoved, this, &CMainWindow::showPosition);
    connect(m_pView, &CMapView::frameRateMeasured, this, [this](double framesPerSecond) {
        m_pFrameRate->setText(tr("%1 fps").arg(framesPerSecond, 0, 'f', 0));
    });
}

void CMainWindow::adoptMap() {
    m_pView->setMap(&m_document.map());
    const QSignalBlocker quiet(m_pWaterLevel);
    m_pWaterLevel->setValue(m_document.waterLevel());
    const double wanted = MIN_HEIGHT_PER_PIXEL / m_document.map().heightScale;
    m_pUnitsPerPixel->setCurrentIndex(
        std::clamp(static_cast<int>(std::ceil(std::log2(wanted) / 2.0)), 0, m_pUnitsPerPixel->count() - 1));
    m_nWatchedTextures = 0;
    showTitle();
}

void CMainWindow::closeEvent(QCloseEvent* event) {
    if (!mayDropMap()) {
        event->ignore();
        return;
    }
    closeEditor();
    m_document.dropAutosave(); // its changes are saved or given up
    event->accept();
}

void CMainWindow::startWork() {
    offerAutosave();
    if (!vuIsEditorActive()) {
        openEditor();
    }
}

void CMainWindow::toggleEditor(bool open) {
    open ? openEditor() : closeEditor();
}

void CMainWindow::openEditor() {
    const QByteArray folder = m_document.textureFolder().toUtf8();
    vuCreateEditor(handleOf(*this), &m_document.map(), CString(folder.constData()), nullptr, true, nullptr);
    if (QWidget* panel = findPanel()) {
        panel->move(m_panelPosition ? pos() + *m_panelPosition : m_pView->mapToGlobal(FIRST_PANEL_POSITION));
    }
    followState();
}

void CMainWindow::closeEditor() {
    vuDestroyEditor();
    clearPointing();
    followState();
}

void CMainWindow::clearPointing() {
    m_document.map().clearEditCursors();
    m_document.map().clearDetailHighlights();
}

void CMainWindow::followState() {
    const bool open = vuIsEditorActive();
    if (const QWidget* panel = findPanel(); panel != nullptr && panel->isVisible()) {
        m_panelPosition = panel->pos() - pos();
    }
    if (m_pEditorAction->isChecked() != open) {
        m_pEditorAction->setChecked(open);
        if (!open) {
            clearPointing();
        }
    }
    if (isWindowModified() != m_document.isModified()) {
        showTitle();
    }
    watchTextures();
    m_pView->noticeChanges();
}

void CMainWindow::showTitle() {
    setWindowTitle(tr("%1[*] - Terrain sandbox").arg(m_document.name()));
    setWindowModified(m_document.isModified());
    m_pSaveAction->setText(m_document.kind() == CMapDocument::Kind::HEIGHTMAP ? tr("&Save Heightmap")
                                                                              : tr("&Save Project"));
}

/// A texture is imported by its file name alone, so a file from a folder that is not looked through stays
/// without an image. The panel says nothing about it.
void CMainWindow::watchTextures() {
    const CMemoryScene& scene = m_document.scene();
    if (scene.getNumTextures() == m_nWatchedTextures) {
        return;
    }
    m_nWatchedTextures = scene.getNumTextures();
    for (int i = 0; i < scene.getNumTextures(); ++i) {
        const char* file = scene.getTexture(i)->getFilename();
        if (*file != '\0' && !CEngineDirectories::resolve(file).has_value()) {
            statusBar()->showMessage(
                tr("No image for the texture %1: put it into %2").arg(file, m_document.placeForTextures()));
        }
    }
}

void CMainWindow::showPosition(const std::optional<TerrainHit>& hit) {
    if (!hit.has_value()) {
        m_pPosition->clear();
        return;
    }
    const CMemoryMap& map = m_document.map();
    m_pPosition->setText(tr("cell %1, %2   height %3   slope %4°")
                             .arg(hit->x)
                             .arg(hit->z)
                             .arg(hit->point[1] / static_cast<double>(map.heightScale), 0, 'f', 1)
                             .arg(static_cast<double>(map.getGradient(hit->x, hit->z)), 0, 'f', 0));
}
