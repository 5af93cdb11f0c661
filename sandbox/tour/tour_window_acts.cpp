#include "sandbox/tour/tour_acts.h"
#include "sandbox/tour/tour_places.h"

#include "host/veskutil.h"
#include "sandbox/project/project_folder.h"

#include <QAbstractButton>
#include <QAction>
#include <QTemporaryDir>
#include <cmath>
#include <set>

namespace tour {

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
    stage.hands().turnWheel(stage.view(), stage.positionOfCell(WORK_X, WORK_Z), 10);
    const CViewCamera& after = stage.view().camera();
    require(after.pivotDistance() < before.pivotDistance() * 0.25,
            "the wheel does not bring the ground nearer");
    require(std::abs(after.forward()[0] - before.forward()[0]) > 0.2, "a drag does not turn the map");
}

void openEditor(CTourStage& stage) {
    stage.hands().pressKey(stage.window(), Qt::Key_M);
    require(waitUntil([&] { return vuIsEditorActive() && stage.dialog(IDD_MAP_EDITOR) != nullptr; }),
            "the map editor does not open");
    stage.waitForPanel();
}

void expandPanel(CTourStage& stage) {
    const int narrow = stage.dialog(IDD_MAP_EDITOR)->width();
    stage.clickControl(IDC_EXPAND);
    stage.waitForPanel();
    require(stage.dialog(IDD_MAP_EDITOR)->width() > narrow * 3 / 2,
            "the panel does not show its full layout");
}

void foldPanel(CTourStage& stage) {
    const int wide = stage.dialog(IDD_MAP_EDITOR)->width();
    stage.clickControl(IDC_EXPAND);
    stage.waitForPanel();
    require(stage.dialog(IDD_MAP_EDITOR)->width() < wide * 2 / 3,
            "the panel does not show its simple layout");
}

void closePanel(CTourStage& stage) {
    stage.showTab(0);
    stage.chooseTool(IDC_TOOL_MAGNET);
    stage.clickControl(IDC_CLOSE);
    require(waitUntil([&] { return !vuIsEditorActive() && stage.dialog(IDD_MAP_EDITOR) == nullptr; }),
            "the panel does not close");
    QAction* action = stage.window().findChild<QAction*>("map-editor");
    require(waitUntil([&] { return !action->isChecked(); }), "the menu still shows the panel as open");
    require(stage.map().getEditCursors().empty(), "the edit cursor is still on the ground");
    const CDetailList& details = stage.map().getDetails();
    for (int i = 0; i < details.size(); ++i) {
        require(details[i].highlighted == 0, "a detail is still highlighted");
    }
}

void reopenPanel(CTourStage& stage) {
    stage.window().activateWindow();
    openEditor(stage);
    const auto* magnet = qobject_cast<QAbstractButton*>(&stage.control(IDC_TOOL_MAGNET));
    require(magnet != nullptr && magnet->isChecked(), "the tool is not remembered");
    const std::uint64_t before = stage.mapHash();
    stage.clickControl(IDC_UNDO);
    require(stage.mapHash() != before, "the history is not remembered");
}

void saveMap(CTourStage& stage) {
    require(stage.window().isWindowModified(), "the title does not tell of changes");
    const QTemporaryDir folder;
    const QString path = folder.filePath("sculpted");
    const QString failure = stage.window().saveProject(path);
    require(failure.isEmpty(), failure);
    require(!stage.window().isWindowModified(), "the title still tells of changes");
    Project saved;
    const ProjectFault fault = readProject(path, saved);
    require(fault.reason.isEmpty(), fault.path + ": " + fault.reason);
    require(std::ranges::equal(saved.heights, stage.map().getHeights()), "the saved heights differ");
}

} // namespace tour
