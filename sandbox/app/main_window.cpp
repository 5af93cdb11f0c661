#include "sandbox/app/main_window.h"

#include "engine/memory/engine_directories.h"
#include "engine/qx_texture.h"
#include "host/veskutil.h"
#include "sandbox/app/film_keys.h"
#include "sandbox/app/session_memory.h"
#include "sandbox/app/stroke_hints.h"
#include "sandbox/keys/map_panel.h"
#include "sandbox/progress/progress_window.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QScopedValueRollback>
#include <QSpinBox>
#include <QStatusBar>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <chrono>
#include <cmath>

namespace {

constexpr double MIN_HEIGHT_PER_PIXEL =
    0.01; // world units that a pixel of drag should move the ground at least

constexpr std::chrono::minutes AUTOSAVE_PERIOD(1);

} // namespace

CMainWindow::CMainWindow() : m_pView(new CMapView(this)), m_pStrip(new CFilmStrip(this)) {
    auto* middle = new QWidget(this);
    auto* layout = new QVBoxLayout(middle);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_pView, 1);
    layout->addWidget(m_pStrip);
    setCentralWidget(middle);
    m_document.setRunner([this](const QString& title, const std::function<void()>& work) {
        const QScopedValueRollback<bool> busy(m_bIsBusy, true);
        return runLongWork(this, title, work);
    });
    makeFileMenu();
    m_pEditMenu = new CEditMenu(*this, *m_pView);
    connect(m_pEditMenu, &CEditMenu::mapChanged, this, &CMainWindow::followJournal);
    makeEditorMenu();
    m_pToolMenu = new CToolMenu(*this, [this] { m_pPanelFocus->giveBack(); });
    makeFilmMenu();
    makeViewMenu();
    makeHelpMenu();
    makeKeys();
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
    closeEditors();
    m_pEditMenu->setMap(nullptr);
    m_pView->setMap(nullptr);
    vuDestroySettings();
}

void CMainWindow::connectView() {
    connect(m_pView, &CMapView::pointerMoved, this, &CMainWindow::showPosition);
    connect(m_pView, &CMapView::frameRateMeasured, this, [this](double framesPerSecond) {
        m_pFrameRate->setText(tr("%1 fps").arg(framesPerSecond, 0, 'f', 0));
    });
    connect(m_pStrip, &CFilmStrip::scrubbed, this, &CMainWindow::refreshMoviePanel);
    connect(&m_filmPlayer, &CFilmPlayer::advanced, m_pStrip, &CFilmStrip::follow);
    connect(&m_filmPlayer, &CFilmPlayer::advanced, m_pView, &CMapView::noticeChanges);
    connect(&m_filmPlayer, &CFilmPlayer::animationTriggered, this,
            [this](const QString& name) { statusBar()->showMessage(tr("Animation: %1").arg(name), 3000); });
    new CStrokeHints(
        *m_pView, [this]() -> const CMemoryMap& { return m_document.map(); },
        [this](const QString& hint) { statusBar()->showMessage(hint); });
    new CFilmKeys(*m_pView, [this] { return m_pMovieEditor->isOpen() ? m_pMovieEditor->panel() : nullptr; });
}

void CMainWindow::adoptMap() {
    m_pView->setMap(&m_document.map(), &m_document.film());
    if (const auto sight = sessionmemory::sightOf(m_document.path())) {
        m_pView->lookFrom(sight->eye, sight->target);
    }
    const QSignalBlocker quiet(m_pWaterLevel);
    m_pWaterLevel->setValue(m_document.waterLevel());
    const double wanted = MIN_HEIGHT_PER_PIXEL / m_document.map().heightScale;
    m_pUnitsPerPixel->setCurrentIndex(
        std::clamp(static_cast<int>(std::ceil(std::log2(wanted) / 2.0)), 0, m_pUnitsPerPixel->count() - 1));
    m_pFilmMenu->setPointed(std::nullopt);
    m_pointed.reset();
    m_nWatchedTextures = 0;
    m_pEditMenu->setMap(&m_document.map(), &m_document.film());
    if (m_document.isModified()) {
        m_pEditMenu->markUnsaved();
    }
    showTitle();
}

void CMainWindow::followJournal(CMapJournal::Reach reach) {
    if (m_pEditMenu->isAsSaved()) {
        m_document.noteAllUndone();
    }
    if (reach == CMapJournal::Reach::FILM) {
        refreshMoviePanel();
        m_pStrip->update();
    }
    m_document.map().clearDetailHighlights();
    m_pWaterLevel->setValue(m_document.waterLevel());
    if (reach == CMapJournal::Reach::RECORDS && m_pMapEditor->isOpen()) {
        m_pMapEditor->close(); // the panel reads definitions, textures and light when it opens
        m_pMapEditor->open();
    }
    m_pView->noticeChanges();
}

void CMainWindow::closeEvent(QCloseEvent* event) {
    if (m_bIsBusy || !mayDropMap()) {
        event->ignore();
        return;
    }
    closeEditors();
    keepSight();
    sessionmemory::keepWindow(*this);
    m_document.dropAutosave(); // its changes are saved or given up
    event->accept();
}

void CMainWindow::keepSight() {
    if (!m_document.path().isEmpty()) {
        const CViewCamera& camera = m_pView->camera();
        sessionmemory::keepSight(m_document.path(), {camera.eye(), camera.pivot()});
    }
}

void CMainWindow::startWork() {
    offerAutosave();
    if (!m_pMapEditor->isOpen()) {
        m_pMapEditor->open();
    }
}

void CMainWindow::closeEditors() {
    m_pMapEditor->close();
    m_pMovieEditor->close();
}

void CMainWindow::followState() {
    m_pMapEditor->follow();
    m_pMovieEditor->follow();
    m_pToolMenu->follow();
    followMapPanel();
    m_pEditMenu->follow();
    makeRoom();
    if (isWindowModified() != m_document.isModified()) {
        showTitle();
    }
    watchTextures();
    m_pStrip->follow();
    m_pView->noticeChanges();
}

void CMainWindow::followMapPanel() {
    if (!m_pMapEditor->isOpen()) {
        return;
    }
    m_hand = CMapPanel::showsDetails() ? m_hand : sessionmemory::handOnPanel();
    const bool details = CMapPanel::showsDetails();
    if (std::exchange(m_bDetailsShown, details) && !details) {
        m_document.map().clearDetailHighlights(); // no tool of the tab would take the one that is marked
    }
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
    m_pointed = hit;
    if (!hit.has_value()) {
        m_pPosition->clear();
        return;
    }
    m_pFilmMenu->setPointed(qxCVector3d(static_cast<float>(hit->point[0]), static_cast<float>(hit->point[1]),
                                        static_cast<float>(hit->point[2])));
    const CMemoryMap& map = m_document.map();
    m_pPosition->setText(tr("cell %1, %2   height %3   slope %4°")
                             .arg(hit->x)
                             .arg(hit->z)
                             .arg(hit->point[1] / static_cast<double>(map.heightScale), 0, 'f', 1)
                             .arg(static_cast<double>(map.getGradient(hit->x, hit->z)), 0, 'f', 0));
}
