#include "sandbox/tour/tour_acts.h"
#include "sandbox/tour/tour_places.h"

#include "engine/qx_texture.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>

namespace tour {

namespace {

QString textureName(const qxCTexture* texture) {
    return texture != nullptr ? QString(texture->name.getString()) : QString("none");
}

std::ptrdiff_t rockyPoints(CTourStage& stage) {
    const auto blends = stage.map().getBlends();
    return std::ranges::count_if(blends, [](int blend) { return blend > CMemoryMap::MAX_BLEND / 2; });
}

} // namespace

void floodValley(CTourStage& stage) {
    stage.clickToolBar("reset-camera");
    stage.enterNumber(*stage.window().findChild<QWidget*>("water-level"), WATER_LEVEL);
    require(stage.map().getWaterHeight() == WATER_LEVEL, "the water level is not taken over");
    if (stage.waterPoints() > 0) { // a map that comes with a lake there is drained first
        for (const int tool : {IDC_TOOL_FLOOD, IDC_TOOL_DRAIN}) {
            stage.chooseTool(tool);
            stage.hands().click(stage.view(), stage.positionOfCell(VALLEY_X, VALLEY_Z));
        }
    }
    const int before = stage.waterPoints();
    stage.chooseTool(IDC_TOOL_FLOOD);
    stage.hands().click(stage.view(), stage.positionOfCell(VALLEY_X, VALLEY_Z));
    const int flooded = stage.waterPoints() - before;
    require(flooded > 4000, QString("only %1 points are flooded").arg(flooded));
}

void drainValley(CTourStage& stage) {
    const int flooded = stage.waterPoints();
    stage.chooseTool(IDC_TOOL_DRAIN);
    stage.hands().click(stage.view(), stage.positionOfCell(VALLEY_X, VALLEY_Z));
    require(stage.waterPoints() < flooded - 4000,
            QString("%1 of %2 points are still under water").arg(stage.waterPoints()).arg(flooded));
    stage.setStepPicture(stage.takePicture());
    stage.chooseTool(IDC_TOOL_FLOOD); // the lake stays for the rest of the session
    stage.hands().click(stage.view(), stage.positionOfCell(VALLEY_X, VALLEY_Z));
    require(stage.waterPoints() == flooded, "the lake does not come back");
}

void showCheckerboard(CTourStage& stage) {
    stage.hands().turnWheel(stage.view(), stage.positionOfCell(WORK_X, WORK_Z), 9);
    stage.clickControl(IDC_MAP_FLAG);
    require(stage.map().hasFlag(qxMapFlagChecker), "the checkerboard is not on");
}

void showFog(CTourStage& stage) {
    stage.clickControl(IDC_MAP_FLAG);
    require(!stage.map().hasFlag(qxMapFlagChecker), "the checkerboard is still on");
    stage.clickControl(IDC_FOG);
    require(stage.map().getScene()->getFogMode() == qxFogModeOn, "the fog is not on");
    stage.setStepPicture(stage.takePicture());
    stage.clickControl(IDC_FOG);
    require(stage.map().getScene()->getFogMode() == qxFogModeOff, "the fog is still on");
}

void listTextures(CTourStage& stage) {
    stage.setStepPicture(stage.chooseTexture(IDC_SMOOTH_TEXTURE, "sand"));
    require(textureName(stage.map().getTexture(qxMapLayerSmooth)) == "sand",
            "the smooth texture is not sand");
}

void coverGround(CTourStage& stage) {
    stage.chooseTexture(IDC_SMOOTH_TEXTURE, "turf");
    require(textureName(stage.map().getTexture(qxMapLayerSmooth)) == "turf",
            "the smooth texture is not turf");
    stage.chooseTexture(IDC_ROUGH_TEXTURE, "rock");
    require(textureName(stage.map().getTexture(qxMapLayerRough)) == "rock", "the rough texture is not rock");
    const int before = stage.map().getTextureTiling();
    QWidget& spin = stage.control(IDC_TILING_SPIN);
    stage.hands().click(spin, QPointF(spin.width() / 2.0, spin.height() / 4.0));
    require(stage.map().getTextureTiling() == before + 1, "the arrow up does not repeat the texture oftener");
}

/// Tint the field with a colour from the colour dialog; the picture is taken with the dialog open.
void chooseTint(CTourStage& stage) {
    stage.chooseTool(IDC_TOOL_TINT);
    stage.clickControl(IDC_BRUSH_DISC);
    stage.setStepPicture(stage.chooseColour(IDC_TINT_COLOUR, QColor(0xd0, 0x8c, 0x46)));
}

void tintGround(CTourStage& stage) {
    const QColor target = stage.swatchColour(IDC_TINT_COLOUR);
    const auto distance = [&] {
        const qxCColour colour = stage.map().getPointColour(0, FIELD_X0 + 6, FIELD_Z0 + 4);
        return std::abs(colour.r - target.red()) + std::abs(colour.g - target.green()) +
               std::abs(colour.b - target.blue());
    };
    const int before = distance();
    stage.setStrength(Qt::Key_End);
    for (int z = FIELD_Z0; z <= FIELD_Z1 - 2; z += 2) {
        stage.hands().drag(stage.view(), stage.positionOfCell(FIELD_X0, z),
                           stage.positionOfCell(FIELD_X1 - 3, z), Qt::LeftButton, 30);
    }
    require(distance() < before * 3 / 4,
            QString("the ground is %1 away from the colour, before it was %2").arg(distance()).arg(before));
}

void paintGround(CTourStage& stage) {
    const auto before = rockyPoints(stage);
    stage.chooseTool(IDC_TOOL_PAINT);
    stage.clickControl(IDC_BRUSH_DISC);
    stage.setStrength(Qt::Key_End);
    for (int z = HILL_Z - 1; z < HILL_Z + 6; z += 3) {
        stage.hands().drag(stage.view(), stage.positionOfCell(HILL_X - 4, z),
                           stage.positionOfCell(HILL_X + 8, z), Qt::LeftButton, 40);
    }
    const auto rocky = rockyPoints(stage) - before;
    require(rocky > 60, QString("only %1 points have become rocky").arg(rocky));
}

} // namespace tour
