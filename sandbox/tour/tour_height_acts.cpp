#include "sandbox/tour/tour_acts.h"
#include "sandbox/tour/tour_places.h"

#include "host/veskutil.h"

#include <cmath>

namespace tour {

namespace {

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
        stage.hands().drag(stage.view(), stage.positionOfCell(FIELD_X0, z), stage.positionOfCell(FIELD_X1, z),
                           Qt::LeftButton, 40);
    }
}

} // namespace

void showCursor(CTourStage& stage) {
    stage.chooseTool(IDC_TOOL_RAISE);
    stage.clickControl(IDC_BRUSH_DISC);
    stage.hands().moveTo(stage.view(), stage.positionOfCell(HILL_X, HILL_Z));
    const auto cursors = stage.map().getEditCursors();
    require(cursors.size() == 12, QString("the disc has %1 cells, not 12").arg(cursors.size()));
    require(cursors[0].x == HILL_X + 1 && cursors[0].z == HILL_Z, "the cursor is not under the pointer");
}

void raiseGround(CTourStage& stage) {
    const int before = stage.map().getPointHeight(HILL_X + 2, HILL_Z + 2);
    const QPointF from = stage.positionOfCell(HILL_X, HILL_Z);
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
    stage.chooseTool(IDC_TOOL_MAGNET);
    stage.setStrength(Qt::Key_End);
    const int before = stage.map().getPointHeight(CONE_X, CONE_Z);
    const QPointF from = stage.positionOfCell(CONE_X, CONE_Z);
    stage.hands().drag(stage.view(), from, from - QPointF(0, 160), Qt::LeftButton, 16);
    const int risen = stage.map().getPointHeight(CONE_X, CONE_Z) - before;
    require(risen > 140 && risen <= 161, QString("the hill rose by %1").arg(risen));
}

void levelRoad(CTourStage& stage) {
    stage.chooseTool(IDC_TOOL_SET_HEIGHT);
    stage.clickControl(IDC_BRUSH_2X2);
    stage.enterNumber(stage.control(IDC_HEIGHT), ROAD_HEIGHT);
    stage.hands().drag(stage.view(), stage.positionOfCell(ROAD_X0, ROAD_Z),
                       stage.positionOfCell(ROAD_X1, ROAD_Z), Qt::LeftButton, 80);
    for (const int x : {ROAD_X0, ROAD_X0 + 1, ROAD_X1, ROAD_X1 + 1}) {
        const int height = stage.map().getPointHeight(x, ROAD_Z);
        require(height == ROAD_HEIGHT,
                QString("the road at %1, %2 is %3 high").arg(x).arg(ROAD_Z).arg(height));
    }
}

void getHeight(CTourStage& stage) {
    stage.chooseTool(IDC_TOOL_GET_HEIGHT);
    constexpr double NEAR = 0.15; // of a cell, from the corner that is meant
    stage.hands().click(stage.view(), stage.positionOf(CONE_X + 1 - NEAR, CONE_Z + 1 - NEAR));
    const int height = stage.map().getPointHeight(CONE_X + 1, CONE_Z + 1);
    require(stage.textOf(IDC_HEIGHT) == QString::number(height),
            QString("the panel shows %1, the corner is %2 high").arg(stage.textOf(IDC_HEIGHT)).arg(height));
}

void getGradient(CTourStage& stage) {
    stage.chooseTool(IDC_TOOL_GET_GRADIENT);
    stage.hands().click(stage.view(), stage.positionOfCell(CONE_X + 3, CONE_Z));
    const float gradient = stage.map().getGradient(CONE_X + 3, CONE_Z);
    require(gradient > 1.0F && std::abs(stage.textOf(IDC_GRADIENT).toFloat() - gradient) < 0.01F,
            QString("the panel shows %1, the slope is %2").arg(stage.textOf(IDC_GRADIENT)).arg(gradient));
}

void flattenCell(CTourStage& stage) {
    const auto height = [&](int corner) {
        return stage.map().getPointHeight(CONE_X + corner % 2, CONE_Z + 3 + corner / 2);
    };
    const int level = (height(0) + height(1) + height(2) + height(3)) / 4;
    require(height(0) != level || height(3) != level, "the cell is level already");
    stage.chooseTool(IDC_TOOL_FLATTEN);
    stage.hands().click(stage.view(), stage.positionOfCell(CONE_X, CONE_Z + 3));
    for (int corner = 0; corner < 4; ++corner) {
        require(height(corner) == level, QString("corner %1 is not at the average height").arg(corner));
    }
}

void selectField(CTourStage& stage) {
    stage.chooseTool(IDC_TOOL_SELECT);
    stage.hands().drag(stage.view(), stage.positionOfCell(FIELD_X0, FIELD_Z0),
                       stage.positionOfCell(FIELD_X1, FIELD_Z1), Qt::LeftButton, 20);
    const int outline = 2 * (FIELD_X1 - FIELD_X0) + 2 * (FIELD_Z1 - FIELD_Z0);
    require(stage.markedPoints() == outline,
            QString("%1 marked points, not %2").arg(stage.markedPoints()).arg(outline));
}

void raiseField(CTourStage& stage) {
    const int before = stage.map().getPointHeight(FIELD_X0 + 5, FIELD_Z0 + 5);
    const int beside = stage.map().getPointHeight(FIELD_X0 - 2, FIELD_Z0 + 5);
    stage.chooseTool(IDC_TOOL_RAISE);
    const QPointF from = stage.positionOfCell(FIELD_X0 + 6, FIELD_Z0 + 5);
    stage.hands().drag(stage.view(), from, from - QPointF(0, 60), Qt::LeftButton, 12);
    const int risen = stage.map().getPointHeight(FIELD_X0 + 5, FIELD_Z0 + 5) - before;
    require(std::abs(risen - 60) <= 1, QString("the field rose by %1, not by 60").arg(risen));
    require(stage.map().getPointHeight(FIELD_X0 - 2, FIELD_Z0 + 5) == beside,
            "ground beside the field moved");
    require(stage.markedPoints() == 0, "the outline is still there");
}

void roughenField(CTourStage& stage) {
    const int before = unevenness(stage);
    stage.chooseTool(IDC_TOOL_ROUGHEN);
    stage.setStrength(Qt::Key_End);
    rubOverField(stage);
    require(unevenness(stage) > before * 2,
            QString("unevenness %1 after %2").arg(unevenness(stage)).arg(before));
}

void smoothField(CTourStage& stage) {
    const int before = unevenness(stage);
    stage.chooseTool(IDC_TOOL_SMOOTH);
    rubOverField(stage);
    require(unevenness(stage) < before / 2,
            QString("unevenness %1 after %2").arg(unevenness(stage)).arg(before));
}

void undoStroke(CTourStage& stage) {
    const std::uint64_t before = stage.mapHash();
    stage.chooseTool(IDC_TOOL_RAISE);
    stage.clickControl(IDC_BRUSH_DISC);
    const QPointF from = stage.positionOfCell(HILL_X, HILL_Z);
    stage.hands().drag(stage.view(), from, from + QPointF(0, 50), Qt::LeftButton);
    require(stage.mapHash() != before, "a downward drag changes nothing");
    stage.clickControl(IDC_UNDO);
    require(stage.mapHash() == before, "Undo does not bring the ground back");
}

void hideCursor(CTourStage& stage) {
    stage.clickControl(IDC_HIDE_CURSOR);
    const QPointF from = stage.positionOfCell(HILL_X, HILL_Z);
    stage.hands().moveTo(stage.view(), from);
    require(!stage.map().getEditCursors().empty(), "the cursor is hidden before the stroke");
    stage.hands().press(Qt::LeftButton);
    stage.hands().moveTo(stage.view(), from - QPointF(0, 30));
    require(stage.map().getEditCursors().empty(), "the cursor shows during the stroke");
    stage.setStepPicture(stage.takePicture());
    stage.hands().release(Qt::LeftButton);
    stage.clickControl(IDC_UNDO);
    stage.clickControl(IDC_HIDE_CURSOR);
}

void selectAll(CTourStage& stage) {
    stage.clickControl(IDC_SELECT_ALL);
    const int outline = 4 * (stage.map().getGridDim() - 1);
    require(stage.markedPoints() == outline,
            QString("%1 marked points, not %2").arg(stage.markedPoints()).arg(outline));
    stage.setStepPicture(stage.takePicture());
    stage.clickControl(IDC_DESELECT);
    require(stage.markedPoints() == 0, "the selection's outline is still there");
}

} // namespace tour
