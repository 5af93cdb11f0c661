#include "sandbox/tour/tour_acts.h"
#include "sandbox/tour/tour_places.h"

#include "engine/memory/memory_scene.h"
#include "engine/qx_texture.h"

#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <cmath>
#include <numeric>

namespace tour {

namespace {

/// A small picture of gravel as a true-colour TGA file.
void writeGravel(const QString& path) {
    constexpr int EDGE = 64;
    QByteArray bytes(18, '\0');
    bytes[2] = 2; // true colour, not packed
    bytes[12] = EDGE;
    bytes[14] = EDGE;
    bytes[16] = 24;
    std::uint32_t state = 1;
    for (int pixel = 0; pixel < EDGE * EDGE; ++pixel) {
        state = state * 1664525U + 1013904223U;
        const int grey = 110 + static_cast<int>(state >> 26U);
        for (const int channel : {grey - 18, grey - 6, grey}) {
            bytes.append(static_cast<char>(channel));
        }
    }
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(), "cannot write " + path);
}

QWidget& part(QWidget& dialog, int id) {
    auto* found = dialog.findChild<QWidget*>(QString::number(id));
    require(found != nullptr, QString("%1 has no control %2").arg(dialog.windowTitle()).arg(id));
    return *found;
}

/// Type the names of files into a file dialog and open them.
void openFiles(CTourStage& stage, QWidget& dialog, const QStringList& paths) {
    auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
    require(name != nullptr, "the file dialog has no field for names");
    stage.hands().click(*name);
    stage.hands().type(*name, '"' + paths.join("\" \"") + '"');
    stage.setStepPicture(stage.takePicture());
    stage.hands().pressKey(*name, Qt::Key_Return);
}

/// The definition being edited, which is also the one that is painted.
qxCMapMultiTexture& definition(CTourStage& stage) {
    auto* found = stage.map().getMultiTexture(stage.map().getCurrentMultiTexture());
    require(found != nullptr, "there is no current definition");
    return *found;
}

QImage preview(CTourStage& stage) {
    return stage.control(IDC_TEXTURE_PREVIEW).grab().toImage();
}

/// What is done must change the preview.
void requireNewPreview(CTourStage& stage, const char* what, const std::function<void()>& act) {
    const QImage before = preview(stage);
    act();
    require(preview(stage) != before, QString("%1 does not change the preview").arg(what));
}

} // namespace

/// Two files are chosen for import, one with a name that is too long. The list is left with Cancel.
void importTextures(CTourStage& stage) {
    const QStringList files{stage.deliveryFolder() + "/gravel.v2.tga",
                            stage.deliveryFolder() + "/sandstone_cliff.tga"};
    for (const QString& file : files) {
        writeGravel(file);
    }
    qxCScene& scene = *stage.map().getScene();
    const int before = scene.getNumTextures();
    const qxCTexture* water = stage.map().getTexture(qxMapLayerWater);
    const auto inList = [&](QWidget& list) {
        stage.answer([&] { stage.hands().click(part(list, IDC_IMPORT_TEXTURE)); },
                     {[&](QWidget& dialog) { openFiles(stage, dialog, files); },
                      [&](QWidget& box) {
                          const auto* message = qobject_cast<QMessageBox*>(&box);
                          require(message != nullptr && message->text().contains("12 characters"),
                                  "the long name is not refused");
                          stage.hands().click(*message->button(QMessageBox::Ok));
                      }});
        stage.hands().click(part(list, CANCEL_BUTTON));
    };
    stage.answer([&] { stage.clickControl(IDC_WATER_TEXTURE); }, {inList});
    require(scene.getNumTextures() == before + 1,
            "not one texture more, but " + QString::number(scene.getNumTextures() - before));
    const qxCTexture& gravel = *scene.getTexture(before);
    require(QString(gravel.name.getString()) == "gravel", "the name is not cut at the first full stop");
    require(stage.map().getTexture(qxMapLayerWater) == water, "Cancel has changed the water's texture");
}

void addDefinition(CTourStage& stage) {
    const int before = stage.map().getNumMultiTextures();
    stage.clickControl(IDC_INSERT_DEFINITION);
    require(stage.map().getNumMultiTextures() == before + 1, "no texture definition is added");
    require(stage.map().getCurrentMultiTexture() == before, "the new definition is not the current one");
    requireNewPreview(stage, "the blend", [&] { stage.enterNumber(stage.control(IDC_BLEND), 1); });
    require(definition(stage).blend == 1.0F, "the blend is not taken over");
    requireNewPreview(stage, "the variation", [&] {
        QWidget& spin = stage.control(IDC_VARIATION_SPIN);
        for (int step = 0; step < 3; ++step) {
            stage.hands().click(spin, QPointF(spin.width() / 2.0, spin.height() / 4.0));
        }
    });
    require(std::abs(definition(stage).variation - 0.3F) < 0.01F, "three steps are not 0.3 of variation");
}

void tintDefinition(CTourStage& stage) {
    const QColor ochre(0xe6, 0xb4, 0x78);
    requireNewPreview(stage, "tint 1", [&] { stage.setStepPicture(stage.chooseColour(IDC_TINT_1, ochre)); });
    const qxCColour tint = definition(stage).tint1;
    require(QColor(tint.r, tint.g, tint.b) == ochre, "the definition does not take the colour chosen");
}

void dragTint(CTourStage& stage) {
    requireNewPreview(stage, "tint 2", [&] { stage.dragColour(IDC_TINT_1, IDC_TINT_2); });
    require(definition(stage).tint2 == definition(stage).tint1, "the dropped colour is not the definition's");
}

void removeDefinition(CTourStage& stage) {
    const int before = stage.map().getNumMultiTextures();
    stage.clickControl(IDC_DUPLICATE_DEFINITION);
    require(stage.map().getNumMultiTextures() == before + 1, "the definition is not copied");
    require(definition(stage).tint1 == stage.map().getMultiTexture(before - 1)->tint1, "the copy differs");
    stage.clickControl(IDC_DELETE_DEFINITION);
    require(stage.map().getNumMultiTextures() == before, "the copy is not deleted");
    require(stage.map().getCurrentMultiTexture() == before - 1, "the original is not the current one again");
}

void editTerrainTypes(CTourStage& stage) {
    _qxMapTerrainDef* edited = nullptr;
    const auto edit = [&](QWidget& editor) {
        auto& types = dynamic_cast<QComboBox&>(part(editor, IDC_TERRAIN_TYPE));
        types.setFocus();
        stage.hands().pressKey(types, Qt::Key_Down);
        for (int i = 0; i < stage.map().getNumTerrainDefs(); ++i) {
            if (types.currentText() == stage.map().getTerrainDef(i)->name) {
                edited = stage.map().getTerrainDef(i);
            }
        }
        require(edited != nullptr, "no terrain type is chosen");
        stage.enterText(part(editor, IDC_FILTER_FIRST + 1), "2.5");
        require(edited->filter[5] == 2.5F, "the cell in row 0, column 1 is not stored column by column");
        stage.hands().click(part(editor, IDC_NORMALIZE));
        const float sum = std::accumulate(std::begin(edited->filter), std::end(edited->filter), 0.0F);
        require(edited->weighting == sum, "Normalize does not store the filter's sum");
        stage.setStepPicture(stage.takePicture());
        stage.hands().click(part(editor, OK_BUTTON));
    };
    stage.answer([&] { stage.clickControl(IDC_TERRAIN_TYPES); }, {edit});
    require(edited->filter[5] == 2.5F, "the edit is not kept");
}

} // namespace tour
