#include "sandbox/app/heightmap_file.h"
#include "sandbox/tour/tour.h"
#include "sandbox/tour/tour_controls.h"

#include "engine/memory/memory_scene.h"
#include "host/veskutil.h"

#include <QAbstractButton>
#include <QApplication>
#include <QPainter>
#include <QTabBar>
#include <QTemporaryDir>
#include <array>
#include <cmath>
#include <set>

namespace {

constexpr int MAP_EDITOR = 212;

// Places on the map where the session works.
constexpr int WORK_X = 196;
constexpr int WORK_Z = 146;
constexpr int HILL_X = 186;
constexpr int HILL_Z = 150;
constexpr int CONE_X = 200;
constexpr int CONE_Z = 158;
constexpr int FIELD_X0 = 198;
constexpr int FIELD_Z0 = 137;
constexpr int FIELD_X1 = 209;
constexpr int FIELD_Z1 = 145;
constexpr int VALLEY_X = 234;
constexpr int VALLEY_Z = 228;
constexpr int WATER_LEVEL = 325;
constexpr int CURSOR_X = 188;
constexpr int CURSOR_Z = 157;
constexpr QSize CLOSE_UP(200, 150);
constexpr int ROAD_X0 = 184;
constexpr int ROAD_X1 = 206;
constexpr int ROAD_Z = 148;
constexpr int ROAD_HEIGHT = 350;

void chooseTool(CTourStage& stage, int tool) {
    stage.clickControl(tool);
    const auto* button = qobject_cast<QAbstractButton*>(&stage.control(tool));
    require(button != nullptr && button->isChecked(), QString("tool %1 is not down after a click").arg(tool));
}

void setStrength(CTourStage& stage, Qt::Key end) {
    QWidget& slider = stage.control(tour::STRENGTH);
    slider.setFocus();
    stage.hands().strike(slider, end);
}

void openEditor(CTourStage& stage) {
    stage.hands().strike(stage.window(), Qt::Key_M);
    require(waitUntil([&] { return vuIsEditorActive() && stage.dialog(MAP_EDITOR) != nullptr; }),
            "the map editor does not open");
    stage.movePanelAside();
}

void showLandscape(CTourStage& stage) {
    QImage picture = stage.takePicture();
    std::set<QRgb> colours;
    for (int y = 0; y < picture.height(); y += 7) {
        for (int x = 0; x < picture.width(); x += 7) {
            colours.insert(picture.pixel(x, y));
        }
    }
    require(colours.size() > 500, QString("the picture has only %1 colours").arg(colours.size()));
    require(stage.view().pick(QRectF(stage.view().rect()).center()).has_value(),
            "no ground in the view's middle");
}

void comeCloser(CTourStage& stage) {
    const CViewCamera before = stage.view().camera();
    const QPointF middle = QRectF(stage.view().rect()).center();
    stage.hands().drag(stage.view(), middle, middle + QPointF(-60, 30), Qt::MiddleButton);
    stage.hands().turnWheel(stage.view(), stage.placeOfCell(WORK_X, WORK_Z), 10);
    const CViewCamera& after = stage.view().camera();
    require(after.pivotDistance() < before.pivotDistance() * 0.25,
            "the wheel does not bring the ground nearer");
    require(std::abs(after.forward()[0] - before.forward()[0]) > 0.2, "a drag does not turn the map");
}

void showCursor(CTourStage& stage) {
    chooseTool(stage, tour::TOOL_RAISE);
    stage.clickControl(tour::BRUSH_DISC);
    stage.hands().moveTo(stage.view(), stage.placeOfCell(HILL_X, HILL_Z));
    const auto cursors = stage.map().getEditCursors();
    require(cursors.size() == 12, QString("the disc has %1 cells, not 12").arg(cursors.size()));
    require(cursors[0].x == HILL_X + 1 && cursors[0].z == HILL_Z, "the cursor is not under the pointer");
}

void raiseGround(CTourStage& stage) {
    const int before = stage.map().getPointHeight(HILL_X + 2, HILL_Z + 2);
    const QPointF from = stage.placeOfCell(HILL_X, HILL_Z);
    constexpr int DRAG = 90;
    stage.hands().moveTo(stage.view(), from);
    stage.hands().press(Qt::LeftButton);
    require(vuIsEditingInProgress(), "a press does not begin a stroke");
    for (int way = 10; way <= DRAG; way += 10) {
        stage.hands().moveTo(stage.view(), from - QPointF(0, way));
    }
    stage.hands().release(Qt::LeftButton);
    require(!vuIsEditingInProgress(), "a release does not end the stroke");
    const int after = stage.map().getPointHeight(HILL_X + 2, HILL_Z + 2);
    require(std::abs(after - before - DRAG) <= 1,
            QString("raised by %1, not by %2").arg(after - before).arg(DRAG));
}

void drawCone(CTourStage& stage) {
    chooseTool(stage, tour::TOOL_MAGNET);
    setStrength(stage, Qt::Key_End);
    const int before = stage.map().getPointHeight(CONE_X, CONE_Z);
    const QPointF from = stage.placeOfCell(CONE_X, CONE_Z);
    stage.hands().drag(stage.view(), from, from - QPointF(0, 160), Qt::LeftButton, 16);
    const int risen = stage.map().getPointHeight(CONE_X, CONE_Z) - before;
    require(risen > 140 && risen <= 161, QString("the hill rose by %1").arg(risen));
}

void levelRoad(CTourStage& stage) {
    chooseTool(stage, tour::TOOL_SET_HEIGHT);
    stage.clickControl(tour::BRUSH_FOUR_CELLS);
    stage.enterNumber(stage.control(tour::HEIGHT), ROAD_HEIGHT);
    stage.hands().drag(stage.view(), stage.placeOfCell(ROAD_X0, ROAD_Z), stage.placeOfCell(ROAD_X1, ROAD_Z),
                       Qt::LeftButton, 80);
    for (const int x : {ROAD_X0, ROAD_X0 + 1, ROAD_X1, ROAD_X1 + 1}) {
        const int height = stage.map().getPointHeight(x, ROAD_Z);
        require(height == ROAD_HEIGHT,
                QString("the road at %1, %2 is %3 high").arg(x).arg(ROAD_Z).arg(height));
    }
}

void selectField(CTourStage& stage) {
    chooseTool(stage, tour::TOOL_SELECT);
    stage.hands().drag(stage.view(), stage.placeOfCell(FIELD_X0, FIELD_Z0),
                       stage.placeOfCell(FIELD_X1, FIELD_Z1), Qt::LeftButton, 20);
    const int outline = 2 * (FIELD_X1 - FIELD_X0) + 2 * (FIELD_Z1 - FIELD_Z0);
    require(stage.markedPoints() == outline,
            QString("%1 marked points, not %2").arg(stage.markedPoints()).arg(outline));
}

void raiseField(CTourStage& stage) {
    const int before = stage.map().getPointHeight(FIELD_X0 + 5, FIELD_Z0 + 5);
    const int beside = stage.map().getPointHeight(FIELD_X0 - 2, FIELD_Z0 + 5);
    chooseTool(stage, tour::TOOL_RAISE);
    const QPointF from = stage.placeOfCell(FIELD_X0 + 6, FIELD_Z0 + 5);
    stage.hands().drag(stage.view(), from, from - QPointF(0, 60), Qt::LeftButton, 12);
    const int risen = stage.map().getPointHeight(FIELD_X0 + 5, FIELD_Z0 + 5) - before;
    require(std::abs(risen - 60) <= 1, QString("the field rose by %1, not by 60").arg(risen));
    require(stage.map().getPointHeight(FIELD_X0 - 2, FIELD_Z0 + 5) == beside,
            "ground beside the field moved");
    require(stage.markedPoints() == 0, "the outline is still there");
}

/// Unevenness of the field: sum over its points of how far each is from the mean of its neighbours.
int unevenness(CTourStage& stage) {
    int sum = 0;
    for (int z = FIELD_Z0; z <= FIELD_Z1; ++z) {
        for (int x = FIELD_X0; x <= FIELD_X1; ++x) {
            const auto height = [&](int dx, int dz) { return stage.map().getPointHeight(x + dx, z + dz); };
            sum += std::abs(4 * height(0, 0) - height(1, 0) - height(-1, 0) - height(0, 1) - height(0, -1));
        }
    }
    return sum;
}

void rubOverField(CTourStage& stage) {
    for (int z = FIELD_Z0; z <= FIELD_Z1; z += 2) {
        stage.hands().drag(stage.view(), stage.placeOfCell(FIELD_X0, z), stage.placeOfCell(FIELD_X1, z),
                           Qt::LeftButton, 40);
    }
}

void roughenField(CTourStage& stage) {
    const int before = unevenness(stage);
    chooseTool(stage, tour::TOOL_ROUGHEN);
    setStrength(stage, Qt::Key_End);
    rubOverField(stage);
    require(unevenness(stage) > before * 2,
            QString("unevenness %1 after %2").arg(unevenness(stage)).arg(before));
}

void smoothField(CTourStage& stage) {
    const int before = unevenness(stage);
    chooseTool(stage, tour::TOOL_SMOOTH);
    rubOverField(stage);
    require(unevenness(stage) < before / 2,
            QString("unevenness %1 after %2").arg(unevenness(stage)).arg(before));
}

void undoStroke(CTourStage& stage) {
    const std::uint64_t before = stage.heightsHash();
    chooseTool(stage, tour::TOOL_RAISE);
    stage.clickControl(tour::BRUSH_DISC);
    const QPointF from = stage.placeOfCell(HILL_X, HILL_Z);
    stage.hands().drag(stage.view(), from, from + QPointF(0, 50), Qt::LeftButton);
    require(stage.heightsHash() != before, "a downward drag changes nothing");
    stage.clickControl(tour::UNDO);
    require(stage.heightsHash() == before, "Undo does not bring the ground back");
}

void floodValley(CTourStage& stage) {
    stage.clickToolBar("reset-camera");
    stage.enterNumber(*stage.window().findChild<QWidget*>("water-level"), WATER_LEVEL);
    require(stage.map().getWaterHeight() == WATER_LEVEL, "the water level is not taken over");
    chooseTool(stage, tour::TOOL_FLOOD);
    stage.hands().click(stage.view(), stage.placeOfCell(VALLEY_X, VALLEY_Z));
    require(stage.waterPoints() > 4000, QString("only %1 points of water").arg(stage.waterPoints()));
}

void showCheckerboard(CTourStage& stage) {
    stage.hands().turnWheel(stage.view(), stage.placeOfCell(WORK_X, WORK_Z), 9);
    stage.clickControl(tour::CHECKERBOARD);
    require(stage.map().hasFlag(qxMapFlagChecker), "the checkerboard is not on");
}

void showFog(CTourStage& stage) {
    stage.clickControl(tour::CHECKERBOARD);
    require(!stage.map().hasFlag(qxMapFlagChecker), "the checkerboard is still on");
    stage.clickControl(tour::FOG);
    require(stage.map().getScene()->getFogMode() == qxFogModeOn, "the fog is not on");
}

void expandPanel(CTourStage& stage) {
    stage.clickControl(tour::FOG);
    const int narrow = stage.dialog(MAP_EDITOR)->width();
    stage.clickControl(tour::EXPAND);
    stage.movePanelAside();
    require(stage.dialog(MAP_EDITOR)->width() > narrow * 3 / 2, "the panel does not show its full layout");
}

void foldPanel(CTourStage& stage) {
    const int wide = stage.dialog(MAP_EDITOR)->width();
    stage.clickControl(tour::EXPAND);
    stage.movePanelAside();
    require(stage.dialog(MAP_EDITOR)->width() < wide * 2 / 3, "the panel does not show its simple layout");
}

/// Rest the pointer at a place of one cell and require a cursor of this kind among those that show.
void requireCursor(CTourStage& stage, double u, double v, int kind) {
    stage.hands().moveTo(stage.view(), stage.placeOf(CURSOR_X + u, CURSOR_Z + v));
    const auto cursors = stage.map().getEditCursors();
    const bool shown =
        std::ranges::any_of(cursors, [&](const CEditCursor& cursor) { return cursor.kind == kind; });
    require(shown, QString("no cursor of kind %1").arg(kind));
}

struct CCursorView {
    int tool;
    int brush;
    double u;
    double v;
    int kind;
};

/// The view around the pointer, for a sheet of pictures side by side.
QImage takeCloseUp(CTourStage& stage) {
    const QImage picture = stage.takePicture();
    const QPoint pointer = stage.hands().screenPlace() - stage.window().geometry().topLeft();
    QRect part(QPoint(), CLOSE_UP);
    part.moveCenter(pointer);
    return picture.copy(part);
}

QImage composeSheet(const std::vector<QImage>& pictures) {
    constexpr int COLUMNS = 5;
    constexpr int GAP = 4;
    const int rows = (static_cast<int>(pictures.size()) + COLUMNS - 1) / COLUMNS;
    QImage sheet(COLUMNS * (CLOSE_UP.width() + GAP) - GAP, rows * (CLOSE_UP.height() + GAP) - GAP,
                 QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    for (int i = 0; i < static_cast<int>(pictures.size()); ++i) {
        painter.drawImage(i % COLUMNS * (CLOSE_UP.width() + GAP), i / COLUMNS * (CLOSE_UP.height() + GAP),
                          pictures[static_cast<std::size_t>(i)]);
    }
    return sheet;
}

void showTab(CTourStage& stage, int index) {
    QWidget& tabs = stage.control(tour::TABS);
    auto* bar = qobject_cast<QTabBar*>(&tabs);
    if (bar == nullptr) {
        bar = tabs.findChild<QTabBar*>();
    }
    require(bar != nullptr, "the tabs cannot be found");
    stage.hands().click(*bar, QRectF(bar->tabRect(index)).center());
    require(bar->currentIndex() == index, QString("tab %1 does not come forward").arg(index));
}

/// Every kind of cursor there is, each at the same cell, on one sheet.
void showEveryCursor(CTourStage& stage) {
    using namespace tour;
    constexpr std::array<CCursorView, 14> CURSORS{{
        {TOOL_RAISE, BRUSH_CELL, 0.5, 0.4, 0},
        {TOOL_RAISE, BRUSH_EDGE, 0.06, 0.5, 1},
        {TOOL_RAISE, BRUSH_EDGE, 0.5, 0.06, 2},
        {TOOL_RAISE, BRUSH_EDGE, 0.94, 0.5, 3},
        {TOOL_RAISE, BRUSH_EDGE, 0.5, 0.94, 4},
        {TOOL_RAISE, BRUSH_CORNER, 0.1, 0.2, 5},
        {TOOL_RAISE, BRUSH_CORNER, 0.9, 0.2, 6},
        {TOOL_RAISE, BRUSH_CORNER, 0.1, 0.8, 7},
        {TOOL_RAISE, BRUSH_CORNER, 0.9, 0.8, 8},
        {TOOL_RAISE, BRUSH_EDGE, 0.3, 0.3, 9},
        {TOOL_RAISE, BRUSH_EDGE, 0.7, 0.3, 10},
        {TOOL_RAISE, BRUSH_PLUS, 0.5, 0.4, 13},
        {TOOL_RAISE, BRUSH_FOUR_CELLS, 0.5, 0.4, 0},
        {TOOL_RAISE, BRUSH_DISC, 0.5, 0.4, 0},
    }};
    stage.hands().turnWheel(stage.view(), stage.placeOfCell(CURSOR_X, CURSOR_Z), 10);
    std::vector<QImage> closeUps;
    for (const CCursorView& cursor : CURSORS) {
        chooseTool(stage, cursor.tool);
        stage.clickControl(cursor.brush);
        requireCursor(stage, cursor.u, cursor.v, cursor.kind);
        closeUps.push_back(takeCloseUp(stage));
    }
    showTab(stage, 1);
    requireCursor(stage, 0.5, 0.4, 15);
    closeUps.push_back(takeCloseUp(stage));
    stage.setStepPicture(composeSheet(closeUps));
}

void showDetailsTab(CTourStage& stage) {
    stage.hands().turnWheel(stage.view(), stage.placeOfCell(CURSOR_X, CURSOR_Z), -4);
    requireCursor(stage, 0.5, 0.4, 15);
}

void closePanel(CTourStage& stage) {
    showTab(stage, 0);
    chooseTool(stage, tour::TOOL_MAGNET);
    stage.clickControl(tour::CLOSE);
    require(waitUntil([&] { return !vuIsEditorActive() && stage.dialog(MAP_EDITOR) == nullptr; }),
            "the panel does not close");
    QAction* action = stage.window().findChild<QAction*>("map-editor");
    require(waitUntil([&] { return !action->isChecked(); }), "the menu still shows the panel as open");
    require(stage.map().getEditCursors().empty(), "the edit cursor is still on the ground");
}

void reopenPanel(CTourStage& stage) {
    stage.window().activateWindow();
    openEditor(stage);
    const auto* magnet = qobject_cast<QAbstractButton*>(&stage.control(tour::TOOL_MAGNET));
    require(magnet != nullptr && magnet->isChecked(), "the tool is not remembered");
    const std::uint64_t before = stage.heightsHash();
    stage.clickControl(tour::UNDO);
    require(stage.heightsHash() != before, "the history is not remembered");
}

void saveMap(CTourStage& stage) {
    require(stage.window().isWindowModified(), "the title does not tell of changes");
    const QTemporaryDir folder;
    const QString path = folder.filePath("sculpted.png");
    const QString failure = stage.window().saveMap(path);
    require(failure.isEmpty(), failure);
    require(!stage.window().isWindowModified(), "the title still tells of changes");
    const CHeightmapReading saved = readHeightmapFile(path);
    require(std::ranges::equal(saved.map.heights, stage.map().getHeights()), "the saved heights differ");
}

} // namespace

const std::vector<CTourStep>& tourSteps() {
    static const std::vector<CTourStep> steps{
        {"landscape", showLandscape},
        {"closer", comeCloser},
        {"map-editor", openEditor},
        {"raise-cursor", showCursor},
        {"raise", raiseGround},
        {"magnet", drawCone},
        {"set-height", levelRoad},
        {"select", selectField},
        {"raise-selection", raiseField},
        {"roughen", roughenField},
        {"smooth", smoothField},
        {"undo", undoStroke},
        {"flood", floodValley},
        {"checkerboard", showCheckerboard},
        {"fog", showFog},
        {"advanced", expandPanel},
        {"simple", foldPanel},
        {"every-cursor", showEveryCursor},
        {"details-tab", showDetailsTab},
        {"closed", closePanel},
        {"reopened", reopenPanel},
        {"saved", saveMap},
    };
    return steps;
}
