#include "sandbox/tour/tour_acts.h"
#include "sandbox/tour/tour_controls.h"

#include "engine/memory/memory_scene.h"
#include "engine/qx_texture.h"

#include <QAbstractItemView>
#include <QTimer>
#include <set>

namespace tour {

namespace {

constexpr int TEXTURE_LIST = 148;
constexpr int TEXTURE_NAMES = 1073; // controls of the texture list
constexpr int OK = 1;

/// What is done to the texture list while it is open: pick a name and press OK. Returns the reason of a
/// failure.
QString pickInList(CTourStage& stage, const QString& name, QImage& picture) {
    QWidget* list = stage.dialog(TEXTURE_LIST);
    auto* names = list->findChild<QAbstractItemView*>(QString::number(TEXTURE_NAMES));
    auto* ok = list->findChild<QWidget*>(QString::number(OK));
    if (names == nullptr || ok == nullptr) {
        return "the texture list lacks its controls";
    }
    const QModelIndexList found =
        names->model()->match(names->model()->index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchExactly);
    if (found.isEmpty()) {
        return "the texture list has no " + name;
    }
    stage.hands().click(*names->viewport(), QRectF(names->visualRect(found.first())).center());
    picture = stage.takePicture();
    stage.hands().click(*ok);
    return {};
}

/// Choose a texture with a picker button. The list it opens is modal, so what is done in it hangs on a timer.
/// Returns the picture of the list with the texture chosen.
QImage chooseTexture(CTourStage& stage, int picker, const QString& name) {
    QImage picture;
    QString failure = "no texture list opens";
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        if (stage.dialog(TEXTURE_LIST) != nullptr) {
            poll.stop();
            failure = pickInList(stage, name, picture);
            if (!failure.isEmpty() && stage.dialog(TEXTURE_LIST) != nullptr) {
                stage.dialog(TEXTURE_LIST)->close();
            }
        }
    });
    poll.start(10);
    stage.clickControl(picker);
    require(waitUntil([&] { return !poll.isActive() && stage.dialog(TEXTURE_LIST) == nullptr; }), failure);
    require(failure.isEmpty(), failure);
    return picture;
}

QString textureName(const qxCTexture* texture) {
    return texture != nullptr ? QString(texture->name.getString()) : QString("none");
}

} // namespace

void floodValley(CTourStage& stage) {
    stage.clickToolBar("reset-camera");
    stage.enterNumber(*stage.window().findChild<QWidget*>("water-level"), WATER_LEVEL);
    require(stage.map().getWaterHeight() == WATER_LEVEL, "the water level is not taken over");
    stage.chooseTool(TOOL_FLOOD);
    stage.hands().click(stage.view(), stage.placeOfCell(VALLEY_X, VALLEY_Z));
    require(stage.waterPoints() > 4000, QString("only %1 points of water").arg(stage.waterPoints()));
}

void showCheckerboard(CTourStage& stage) {
    stage.hands().turnWheel(stage.view(), stage.placeOfCell(WORK_X, WORK_Z), 9);
    stage.clickControl(CHECKERBOARD);
    require(stage.map().hasFlag(qxMapFlagChecker), "the checkerboard is not on");
}

void showFog(CTourStage& stage) {
    stage.clickControl(CHECKERBOARD);
    require(!stage.map().hasFlag(qxMapFlagChecker), "the checkerboard is still on");
    stage.clickControl(FOG);
    require(stage.map().getScene()->getFogMode() == qxFogModeOn, "the fog is not on");
}

void listTextures(CTourStage& stage) {
    stage.setStepPicture(chooseTexture(stage, SMOOTH_TEXTURE, "grass"));
    require(textureName(stage.map().getTexture(qxMapLayerSmooth)) == "grass",
            "the smooth texture is not grass");
}

void coverGround(CTourStage& stage) {
    chooseTexture(stage, ROUGH_TEXTURE, "rock");
    require(textureName(stage.map().getTexture(qxMapLayerRough)) == "rock", "the rough texture is not rock");
    const int before = stage.map().getNumMultiTextures();
    stage.clickControl(INSERT_DEFINITION);
    require(stage.map().getNumMultiTextures() == before + 1, "no texture definition is added");
    stage.enterNumber(stage.control(BLEND), 1);
    require(stage.map().getMultiTexture(before)->blend == 1.0F, "the blend is not taken over");
}

void paintGround(CTourStage& stage) {
    stage.chooseTool(TOOL_PAINT);
    stage.clickControl(BRUSH_DISC);
    stage.setStrength(Qt::Key_End);
    for (int z = HILL_Z - 1; z < HILL_Z + 6; z += 3) {
        stage.hands().drag(stage.view(), stage.placeOfCell(HILL_X - 4, z), stage.placeOfCell(HILL_X + 8, z),
                           Qt::LeftButton, 40);
    }
    const auto blends = stage.map().getBlends();
    const auto rocky =
        std::ranges::count_if(blends, [](int blend) { return blend > CMemoryMap::MAX_BLEND / 2; });
    require(rocky > 60, QString("only %1 points are rocky").arg(rocky));
}

void plantDetails(CTourStage& stage) {
    stage.showTab(1);
    chooseTexture(stage, DETAIL_TEXTURE, "bush");
    stage.chooseTool(TOOL_ADD_POINT_DETAIL);
    const int before = stage.map().getDetails().size();
    for (int i = 0; i < BUSHES; ++i) {
        stage.hands().click(stage.view(), stage.placeOfCell(BUSH_X + i * 2, BUSH_Z + i % 2));
    }
    const int planted = stage.map().getDetails().size() - before;
    require(planted == BUSHES, QString("%1 details planted, not %2").arg(planted).arg(BUSHES));
}

} // namespace tour
