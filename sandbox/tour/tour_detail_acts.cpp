#include "sandbox/tour/tour_acts.h"
#include "sandbox/tour/tour_places.h"

#include <cmath>

namespace tour {

namespace {

int countOf(CTourStage& stage) {
    return stage.map().getDetails().size();
}

const qxCMapDetailRecord& newest(CTourStage& stage) {
    return stage.map().getDetails()[countOf(stage) - 1];
}

/// Where the middle of a quad is seen.
QPointF middleOf(CTourStage& stage, const qxCMapDetailRecord& quad) {
    return stage.positionOf((quad.point1.x + quad.point2.x) / 2.0, (quad.point1.z + quad.point2.z) / 2.0);
}

double edgeOf(const qxCMapDetailRecord& quad) {
    return std::hypot(quad.point1.x - quad.point0.x, quad.point1.z - quad.point0.z);
}

/// Point at a quad, choose a tool and drag; the quad must be highlighted before.
void dragQuad(CTourStage& stage, const qxCMapDetailRecord& quad, int tool, QPointF way) {
    stage.chooseTool(tool);
    const QPointF position = middleOf(stage, quad);
    stage.hands().moveTo(stage.view(), position);
    require(quad.highlighted != 0, "the detail under the pointer is not highlighted");
    stage.hands().drag(stage.view(), position, position + way, Qt::LeftButton);
}

/// The same drag, but along the ground, by cells.
void dragQuadOver(CTourStage& stage, const qxCMapDetailRecord& quad, int tool, int cells) {
    const double x = (quad.point1.x + quad.point2.x) / 2.0;
    const double z = (quad.point1.z + quad.point2.z) / 2.0;
    dragQuad(stage, quad, tool, stage.positionOf(x + cells, z) - stage.positionOf(x, z));
}

} // namespace

void addQuad(CTourStage& stage) {
    stage.showTab(1);
    stage.chooseTexture(IDC_DETAIL_TEXTURE, "furrows");
    stage.chooseTool(TOOL_ADD_QUAD_DETAIL);
    const int before = countOf(stage);
    stage.hands().drag(stage.view(), stage.positionOfCell(FIELD_OF_CROPS_X, FIELD_OF_CROPS_Z),
                       stage.positionOfCell(FIELD_OF_CROPS_X + 1, FIELD_OF_CROPS_Z), Qt::LeftButton);
    require(countOf(stage) == before + 1, "no detail is added");
    require(newest(stage).point0.x == FIELD_OF_CROPS_X + 1, "the new detail does not follow the drag");
}

void scaleDetail(CTourStage& stage) {
    const qxCMapDetailRecord& quad = newest(stage);
    const double before = edgeOf(quad);
    dragQuad(stage, quad, TOOL_SCALE_DETAIL, QPointF(0, -75));
    require(std::abs(edgeOf(quad) / before - 4.0) < 0.1,
            QString("75 pixels up scale by %1, not by 4").arg(edgeOf(quad) / before));
}

void rotateDetail(CTourStage& stage) {
    const qxCMapDetailRecord& quad = newest(stage);
    const qxCVector3d corner = quad.point1;
    const double edge = edgeOf(quad);
    dragQuad(stage, quad, TOOL_ROTATE_DETAIL, QPointF(0, -30));
    require(std::abs(edgeOf(quad) - edge) < 0.01, "turning changes the size");
    require(std::hypot(quad.point1.x - corner.x, quad.point1.z - corner.z) > 0.5, "the detail is not turned");
}

void moveDetail(CTourStage& stage) {
    const qxCMapDetailRecord& quad = newest(stage);
    const float before = quad.point0.x;
    dragQuadOver(stage, quad, TOOL_MOVE_DETAIL, -5);
    require(std::abs(quad.point0.x - before + 5.0F) < 0.01F,
            QString("the detail moved by %1 cells, not by -5").arg(quad.point0.x - before));
}

void duplicateDetail(CTourStage& stage) {
    const int before = countOf(stage);
    dragQuadOver(stage, newest(stage), TOOL_DUPLICATE_DETAIL, 8);
    require(countOf(stage) == before + 1, "there is no copy");
    const CDetailList& details = stage.map().getDetails();
    require(std::abs(edgeOf(details[before]) - edgeOf(details[before - 1])) < 0.01,
            "the copy differs in size");
    require(details[before].point0.x > details[before - 1].point0.x + 7.0F,
            "the copy does not follow the drag");
}

void flipDetail(CTourStage& stage) {
    const qxCMapDetailRecord& quad = newest(stage);
    const qxCVector3d left = quad.point0;
    const qxCVector3d right = quad.point1;
    dragQuad(stage, quad, TOOL_FLIP_DETAIL, QPointF());
    require(quad.point0.x == right.x && quad.point0.z == right.z && quad.point1.x == left.x &&
                quad.point1.z == left.z,
            "the corners along x are not exchanged");
}

void deleteDetail(CTourStage& stage) {
    const int before = countOf(stage);
    dragQuad(stage, newest(stage), TOOL_DELETE_DETAIL, QPointF());
    require(countOf(stage) == before - 1, "the detail is still there");
}

void plantDetails(CTourStage& stage) {
    stage.chooseTexture(IDC_DETAIL_TEXTURE, "bush");
    stage.chooseTool(TOOL_ADD_POINT_DETAIL);
    const int before = countOf(stage);
    for (int i = 0; i < BUSHES; ++i) {
        stage.hands().click(stage.view(), stage.positionOfCell(BUSH_X + i * 2, BUSH_Z + i % 2));
    }
    const int planted = countOf(stage) - before;
    require(planted == BUSHES, QString("%1 details planted, not %2").arg(planted).arg(BUSHES));
}

void showDetailHighlight(CTourStage& stage) {
    stage.hands().moveTo(stage.view(), stage.positionOfCell(BUSH_X + 4, BUSH_Z));
    const CDetailList& details = stage.map().getDetails();
    int highlighted = 0;
    for (int i = 0; i < details.size(); ++i) {
        highlighted += details[i].highlighted != 0 ? 1 : 0;
    }
    require(highlighted == 1,
            QString("%1 details are highlighted, not the one under the pointer").arg(highlighted));
}

} // namespace tour
