#include "sandbox/app/main_window.h"

#include "sandbox/export/export_dialog.h"
#include "sandbox/keys/shortcuts_dialog.h"
#include "sandbox/unsaved/unsaved_work.h"
#include "sandbox/view/marked_points.h"

#include <QAction>
#include <QActionGroup>
#include <QComboBox>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QSpinBox>
#include <QStatusBar>
#include <QStyle>
#include <QTimer>
#include <QToolBar>
#include <algorithm>
#include <chrono>
#include <cmath>

namespace {

constexpr std::chrono::seconds MESSAGE_STAYS(10);
constexpr double NEAREST_FRAME = 8.0; // cells around a place that is looked at from near

constexpr const char* CONTROLS = R"(
<h3>Camera</h3>
<table cellpadding="3">
<tr><td><b>Right drag</b></td><td>look around (fly) or turn the map (orbit)</td></tr>
<tr><td><b>W A S D</b></td><td>fly; <b>E</b> or <b>Space</b> up, <b>Q</b> or <b>C</b> down, <b>Shift</b> faster</td></tr>
<tr><td><b>Wheel</b></td><td>nearer to what the pointer is on, or farther; with the right button held: flying speed</td></tr>
<tr><td><b>Middle drag</b>, <b>Alt + left drag</b></td><td>turn about the middle of the view</td></tr>
<tr><td><b>F</b>, <b>Home</b></td><td>look at the selection, or at what the pointer is on, from near; see the whole map</td></tr>
<tr><td><b>O</b></td><td>fly or orbit</td></tr>
</table>
<h3>Editing</h3>
<table cellpadding="3">
<tr><td><b>M</b>, <b>T</b></td><td>open or close the map editor, the movie editor</td></tr>
<tr><td><b>Left drag</b></td><td>a stroke with the tool chosen on the panel; with Raise and Magnet, drag up to
raise and down to lower</td></tr>
<tr><td><b>Ctrl</b>, <b>Shift + left drag</b></td><td>the other way round with Raise, Magnet, Flood and Drain; smooth
with any tool</td></tr>
<tr><td><b>1</b> to <b>9</b>, <b>0</b>, <b>G N R</b></td><td>the panel's tools; <b>Ctrl+Tab</b> its other tab</td></tr>
<tr><td><b>[ ]</b>, <b>- =</b></td><td>smaller or larger brush, weaker or stronger</td></tr>
<tr><td><b>Undo</b> on the panel</td><td>takes back the newest stroke</td></tr>
<tr><td><b>P</b></td><td>give the point of the ground a name, for a film's camera to look at</td></tr>
</table>
<h3>While the movie editor is open</h3>
<table cellpadding="3">
<tr><td><b>Space</b></td><td>play, stop</td></tr>
<tr><td><b>,</b> and <b>.</b></td><td>a frame back, ahead; with <b>Shift</b> a keyframe</td></tr>
<tr><td><b>Home</b>, <b>End</b></td><td>first frame, last frame</td></tr>
</table>
)";

} // namespace

void CMainWindow::makeFileMenu() {
    QMenu* menu = menuBar()->addMenu(tr("&File"));
    const auto add = [&](const QString& text, const char* name, const QKeySequence& keys,
                         void (CMainWindow::*handler)()) {
        QAction* action = menu->addAction(text, keys, this, handler);
        action->setObjectName(name);
        return action;
    };
    add(tr("&New..."), "new-map", QKeySequence::New, &CMainWindow::startNew);
    QAction* open =
        add(tr("&Open Project..."), "open-project", QKeySequence::Open, &CMainWindow::chooseProject);
    open->setIcon(style()->standardIcon(QStyle::SP_DialogOpenButton));
    add(tr("Open &Heightmap..."), "open-heightmap", QKeySequence("Ctrl+Shift+O"),
        &CMainWindow::chooseHeightmap);
    QMenu* recent = menu->addMenu(tr("Open &Recent"));
    recent->setObjectName("recent");
    connect(recent, &QMenu::aboutToShow, this, [this, recent] { fillRecentMenu(*recent); });
    menu->addAction(tr("&Unsaved Work..."), this,
                    [this] {
                        if (abandonedCopies({}).empty()) {
                            statusBar()->showMessage(tr("No unsaved work is waiting."));
                        }
                        offerAutosave();
                    })
        ->setObjectName("unsaved-work");
    menu->addSeparator();
    m_pSaveAction = menu->addAction(style()->standardIcon(QStyle::SP_DialogSaveButton), tr("&Save"),
                                    QKeySequence::Save, this, &CMainWindow::save);
    m_pSaveAction->setObjectName("save");
    m_pSaveAction->setIconText(tr("Save"));
    menu->addAction(tr("Save Project &As..."), QKeySequence("Ctrl+Shift+S"), this,
                    &CMainWindow::saveProjectAs)
        ->setObjectName("save-project-as");
    menu->addAction(tr("Save H&eightmap As..."), this, &CMainWindow::saveHeightmapAs)
        ->setObjectName("save-heightmap-as");
    menu->addSeparator();
    menu->addAction(tr("E&xport Film..."), this,
                    [this] {
                        askToExportFilm(*this, m_document.map(), m_document.film(), m_pView->options(),
                                        sessionmemory::folder());
                    })
        ->setObjectName("export-film");
    menu->addSeparator();
    menu->addAction(tr("&Quit"), QKeySequence("Ctrl+Q"), this, &CMainWindow::close)->setObjectName("quit");
}

void CMainWindow::makeEditorMenu() {
    QMenu* menu = menuBar()->addMenu(tr("&Editors"));
    m_pMapEditor = new CEditorWindow(*this, mapEditorKind());
    m_pMovieEditor = new CEditorWindow(*this, movieEditorKind());
    menu->addAction(&m_pMapEditor->action());
    menu->addAction(&m_pMovieEditor->action());
}

void CMainWindow::makeFilmMenu() {
    m_pFilmMenu = new CFilmMenu(*this, [this]() -> CFilm& { return m_document.film(); });
    connect(m_pFilmMenu, &CFilmMenu::changed, this, &CMainWindow::refreshMoviePanel);
}

void CMainWindow::makeViewMenu() {
    QMenu* menu = menuBar()->addMenu(tr("&View"));
    m_pFlyAction = menu->addAction(tr("&Fly"));
    m_pFlyAction->setObjectName("fly");
    m_pFlyAction->setToolTip(tr("Right drag looks around; without it, right drag turns the map"));
    m_pFlyAction->setCheckable(true);
    m_pFlyAction->setChecked(true);
    m_pFlyAction->setShortcut(Qt::Key_O);
    connect(m_pFlyAction, &QAction::toggled, this, [this](bool fly) {
        m_pView->setCameraMode(fly ? CMapView::CameraMode::FLY : CMapView::CameraMode::ORBIT);
        statusBar()->showMessage(fly ? tr("Right drag looks around") : tr("Right drag turns the map"), 3000);
    });
    QAction* near = menu->addAction(tr("Frame &Selection"), Qt::Key_F, this, &CMainWindow::frame);
    near->setObjectName("frame");
    near->setToolTip(tr("Look at the selection, else at what the pointer is on, from near"));
    QAction* reset = menu->addAction(tr("&Reset Camera"), Qt::Key_Home, m_pView, &CMapView::resetCamera);
    reset->setObjectName("reset-camera");
    QAction* dock = menu->addAction(tr("&Dock Map Editor"));
    dock->setObjectName("dock-map-editor");
    dock->setToolTip(tr("Keep the map editor's panel at the right side of the window"));
    dock->setCheckable(true);
    connect(dock, &QAction::toggled, this, &CMainWindow::dockMapEditor);
    dock->setChecked(wasMapEditorDocked());
    menu->addSeparator();
    const auto addOption = [&](const QString& text, const char* name, bool ViewOptions::*option) {
        QAction* action = menu->addAction(text);
        action->setObjectName(name);
        action->setCheckable(true);
        action->setChecked(m_pView->options().*option);
        connect(action, &QAction::toggled, this, [this, option](bool on) {
            ViewOptions options = m_pView->options();
            options.*option = on;
            m_pView->setOptions(options);
        });
    };
    addOption(tr("&Grid"), "grid", &ViewOptions::grid);
    addOption(tr("&Wireframe"), "wireframe", &ViewOptions::wireframe);
}

void CMainWindow::makeHelpMenu() {
    QMenu* menu = menuBar()->addMenu(tr("&Help"));
    menu->addAction(tr("&Controls"), Qt::Key_F1, this, &CMainWindow::showControls)->setObjectName("controls");
    menu->addAction(tr("&Shortcuts..."), this, &CMainWindow::editShortcuts)->setObjectName("edit-shortcuts");
}

void CMainWindow::makeKeys() {
    m_shortcuts.emplace(*menuBar());
    m_pPanelFocus = new CPanelFocus(*m_pView);
    new CHeldKeys(*m_pView, [this] { m_pPanelFocus->giveBack(); });
}

void CMainWindow::editShortcuts() {
    CShortcutsDialog(*m_shortcuts, this).exec();
}

void CMainWindow::frame() {
    const CMemoryMap& map = m_document.map();
    if (const std::optional<GridRect> selected = markedPoints(map)) {
        const double x = (selected->x0 + selected->x1) / 2.0;
        const double z = (selected->z0 + selected->z1) / 2.0;
        const double radius = std::hypot(selected->x1 - selected->x0, selected->z1 - selected->z0) / 2.0;
        m_pView->frame({x, groundHeight(heightFieldOf(map), x, z), z}, std::max(radius, NEAREST_FRAME));
    } else if (m_pointed) {
        m_pView->frame(m_pointed->point, NEAREST_FRAME);
    }
}

void CMainWindow::showControls() {
    QMessageBox box(QMessageBox::NoIcon, tr("Controls"), tr(CONTROLS), QMessageBox::Close, this);
    box.exec();
}

void CMainWindow::makeToolBar() {
    QToolBar* bar = addToolBar(tr("Main"));
    bar->setObjectName("main-tools");
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bar->addAction(findChild<QAction*>("open-project"));
    bar->addAction(findChild<QAction*>("save"));
    bar->addSeparator();
    bar->addAction(&m_pMapEditor->action());
    bar->addAction(&m_pMovieEditor->action());
    bar->addSeparator();
    bar->addAction(m_pFlyAction);
    bar->addAction(findChild<QAction*>("reset-camera"));
    bar->addSeparator();
    bar->addWidget(new QLabel(tr(" Water level ")));
    m_pWaterLevel = new QSpinBox;
    m_pWaterLevel->setObjectName("water-level");
    m_pWaterLevel->setRange(0, CMemoryMap::MAX_HEIGHT);
    m_pWaterLevel->setToolTip(tr("Height of standing water; the Flood tool fills up to it"));
    m_pWaterLevel->setFocusPolicy(Qt::ClickFocus);
    connect(m_pWaterLevel, &QSpinBox::valueChanged, this, [this](int level) {
        m_document.setWaterLevel(level);
        m_pView->update();
    });
    bar->addWidget(m_pWaterLevel);
    bar->addWidget(new QLabel(tr("  Drag ")));
    m_pUnitsPerPixel = new QComboBox;
    m_pUnitsPerPixel->setObjectName("units-per-pixel");
    m_pUnitsPerPixel->setToolTip(tr("Height units that one pixel of an upward drag raises"));
    m_pUnitsPerPixel->setFocusPolicy(Qt::ClickFocus);
    for (const int units : {1, 4, 16, 64, 256}) {
        m_pUnitsPerPixel->addItem(tr("x %1").arg(units), units);
    }
    connect(m_pUnitsPerPixel, &QComboBox::currentIndexChanged, this,
            [this] { m_pView->setUnitsPerPixel(m_pUnitsPerPixel->currentData().toInt()); });
    bar->addWidget(m_pUnitsPerPixel);
}

void CMainWindow::makeStatusBar() {
    m_pPosition = new QLabel;
    m_pPosition->setObjectName("position");
    m_pFrameRate = new QLabel;
    m_pFrameRate->setObjectName("frameRate");
    m_pFrameRate->setMinimumWidth(m_pFrameRate->fontMetrics().horizontalAdvance("0000 fps"));
    m_pFrameRate->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    statusBar()->addPermanentWidget(m_pPosition);
    statusBar()->addPermanentWidget(m_pFrameRate);
    auto* patience = new QTimer(this);
    patience->setSingleShot(true);
    connect(patience, &QTimer::timeout, statusBar(), &QStatusBar::clearMessage);
    connect(statusBar(), &QStatusBar::messageChanged, patience, [patience](const QString& text) {
        text.isEmpty() ? patience->stop() : patience->start(MESSAGE_STAYS);
    });
    statusBar()->showMessage(tr("F1 shows the controls"));
}
