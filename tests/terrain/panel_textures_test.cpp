#include "terrain/panel_fixture.h"

#include "engine/memory/engine_directories.h"
#include "engine/qx_texture.h"
#include "host/veskutil.h"
#include "module/module_state.h"
#include "resources/resource_ids.h"
#include "support/modal_steps.h"
#include "terrain/panel/map_editor_dlg.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>

#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace {

constexpr qxCColour RED{255, 0, 0, 255};
constexpr qxCColour BLUE{0, 0, 255, 255};
constexpr qxCColour WHITE{255, 255, 255, 255};

/// A map with two definitions on two plain base images of 32 x 32, the smooth one light, the rough one dark.
class PanelTextures : public PanelTest {
protected:
    PanelTextures() {
        m_folder = std::filesystem::temp_directory_path() / ("panel_textures_" + std::to_string(getpid()));
        std::filesystem::create_directories(m_folder);
        CEngineDirectories::setDirectories({m_folder});
        m_map.setTexture(qxMapLayerSmooth, addTexture("light", 200));
        m_map.setTexture(qxMapLayerRough, addTexture("dark", 100));
        addTexture("tree", 50);
    }

    ~PanelTextures() override {
        vuDestroyEditor();
        CEngineDirectories::setDirectories({});
        std::filesystem::remove_all(m_folder);
    }

    qxCTexture* addTexture(const std::string& name, int grey) {
        std::ofstream file(m_folder / (name + ".tga"), std::ios::binary);
        for (const int byte : {0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 32, 0, 32, 0, 24, 0x20}) {
            file.put(static_cast<char>(byte));
        }
        file << std::string(32 * 32 * 3, static_cast<char>(grey));
        qxCTexture* texture = m_scene.createTexture();
        texture->name.setString(name.c_str());
        texture->setFilename((name + ".tga").c_str());
        m_scene.addTexture(texture);
        return texture;
    }

    void addDefinition(const qxCMapMultiTexture& values) { *m_map.addMultiTexture() = values; }

    /// Colour in the middle of the preview's first cell of the pattern.
    static QColor shownInPreview() {
        QApplication::processEvents();
        return control(IDC_TEXTURE_PREVIEW)->grab().toImage().pixelColor(2, 2);
    }

    static QColor shownInSwatch(int id) {
        QApplication::processEvents();
        return control(id)->grab().toImage().pixelColor(3, 3);
    }

    /// Press the mouse on one swatch and let it go over another.
    static void dragColour(int from, int to) {
        const auto at = [](QWidget* on) { return on->mapTo(panel(), on->rect().center()); };
        QTest::mousePress(panel()->windowHandle(), Qt::LeftButton, Qt::NoModifier, at(control(from)));
        QTest::mouseRelease(panel()->windowHandle(), Qt::LeftButton, Qt::NoModifier, at(control(to)));
    }

    /// The up (or down) arrow of a spin.
    static void spin(int id, bool up) {
        QWidget* const arrows = control(id);
        const int quarter = arrows->height() / 4;
        QTest::mouseClick(arrows, Qt::LeftButton, Qt::NoModifier,
                          QPoint(arrows->width() / 2, up ? quarter : arrows->height() - quarter));
    }

    static void leave(int id) { QTest::keyClick(control(id), Qt::Key_Tab); }

    static float number(int id) { return text(id).toFloat(); }

    static void pickTexture(int picker, const QString& name, int button) {
        const CModalSteps user({[&](QWidget* list) {
            auto* const entries = list->findChild<QListWidget*>(QString::number(IDC_TEXTURES));
            const auto found = entries->findItems(name, Qt::MatchExactly);
            ASSERT_EQ(found.size(), 1);
            QTest::mouseClick(entries->viewport(), Qt::LeftButton, Qt::NoModifier,
                              entries->visualItemRect(found.front()).center());
            QTest::mouseClick(list->findChild<QWidget*>(QString::number(button)), Qt::LeftButton);
        }});
        click(picker);
        EXPECT_TRUE(user.areDone());
    }

    std::filesystem::path m_folder;
};

} // namespace

TEST_F(PanelTextures, TheStartShowsWhatTheMapHas) {
    addDefinition({RED, BLUE, 0.25F, 0.5F});
    addDefinition({BLUE, RED, 0.75F, 0.0F});
    m_map.setCurrentMultiTexture(1);
    m_map.setTextureTiling(12);
    m_map.setAmbient({1, 2, 3, 9});
    m_map.setDiffuse({4, 5, 6, 9});
    open();
    expand();
    EXPECT_EQ(text(IDC_TEXTURE_NUMBER), "1");
    EXPECT_FLOAT_EQ(number(IDC_BLEND), 0.75F);
    EXPECT_FLOAT_EQ(number(IDC_VARIATION), 0.0F);
    EXPECT_EQ(text(IDC_TILING), "12");
    EXPECT_EQ(shownInSwatch(IDC_TINT_COLOUR), QColor(255, 255, 255));
    EXPECT_EQ(shownInSwatch(IDC_TINT_1), QColor(0, 0, 255));
    EXPECT_EQ(shownInSwatch(IDC_TINT_2), QColor(255, 0, 0));
    EXPECT_EQ(shownInSwatch(IDC_AMBIENT_COLOUR), QColor(1, 2, 3));
    EXPECT_EQ(shownInSwatch(IDC_DIFFUSE_COLOUR), QColor(4, 5, 6));
    EXPECT_EQ(text(IDC_SMOOTH_TEXTURE), "light");
    EXPECT_EQ(text(IDC_ROUGH_TEXTURE), "dark");
    EXPECT_EQ(text(IDC_WATER_TEXTURE), "-NONE-");
    EXPECT_EQ(text(IDC_DETAIL_TEXTURE), "-NONE-");
    EXPECT_EQ(m_map.getCurrentMultiTexture(), 1);
}

TEST_F(PanelTextures, DefinitionsAreWalkedAddedCopiedAndRemoved) {
    addDefinition({RED, BLUE, 0.2F, 0.1F});
    open();
    expand();
    const auto expectShown = [&](const char* what, int index, int count, float blend) {
        EXPECT_EQ(text(IDC_TEXTURE_NUMBER).toInt(), index) << what;
        EXPECT_EQ(m_map.getCurrentMultiTexture(), index) << what << ": the one shown is the one painted";
        EXPECT_EQ(m_map.getNumMultiTextures(), count) << what;
        EXPECT_FLOAT_EQ(number(IDC_BLEND), blend) << what;
    };
    click(IDC_PREVIOUS_TEXTURE);
    expectShown("previous at the first", 0, 1, 0.2F);
    click(IDC_NEXT_TEXTURE);
    expectShown("next at the last", 0, 1, 0.2F);
    click(IDC_DUPLICATE_DEFINITION);
    expectShown("duplicate", 1, 2, 0.2F);
    EXPECT_EQ(m_map.getMultiTexture(1)->tint1, RED);
    EXPECT_EQ(m_map.getMultiTexture(1)->tint2, BLUE);
    EXPECT_FLOAT_EQ(m_map.getMultiTexture(1)->variation, 0.1F);
    click(IDC_INSERT_DEFINITION);
    expectShown("insert", 2, 3, 0.0F);
    click(IDC_PREVIOUS_TEXTURE);
    expectShown("previous", 1, 3, 0.2F);
    click(IDC_DELETE_DEFINITION);
    expectShown("delete", 0, 2, 0.2F);
    click(IDC_DELETE_DEFINITION);
    expectShown("delete the first", 0, 1, 0.0F);
    click(IDC_NEXT_TEXTURE);
    expectShown("next at the last again", 0, 1, 0.0F);
}

TEST_F(PanelTextures, TypedAndSteppedValuesReachTheDefinitionShown) {
    addDefinition({WHITE, WHITE, 0.0F, 0.0F});
    addDefinition({WHITE, WHITE, 0.0F, 0.0F});
    open();
    expand();
    click(IDC_NEXT_TEXTURE);
    const qxCMapMultiTexture& first = *m_map.getMultiTexture(0);
    const qxCMapMultiTexture& second = *m_map.getMultiTexture(1);
    EXPECT_EQ(shownInPreview(), QColor(200, 200, 200)) << "all smooth";

    type(IDC_BLEND, "1");
    EXPECT_FLOAT_EQ(second.blend, 0.0F) << "not before the field is left";
    leave(IDC_BLEND);
    EXPECT_FLOAT_EQ(second.blend, 1.0F);
    EXPECT_EQ(shownInPreview(), QColor(100, 100, 100)) << "all rough";
    spin(IDC_BLEND_SPIN, false);
    EXPECT_FLOAT_EQ(second.blend, 0.9F);
    EXPECT_FLOAT_EQ(number(IDC_BLEND), 0.9F);
    EXPECT_EQ(shownInPreview(), QColor(110, 110, 110));

    type(IDC_VARIATION, "7");
    leave(IDC_VARIATION);
    EXPECT_FLOAT_EQ(second.variation, 1.0F) << "brought to the end of the range";
    EXPECT_FLOAT_EQ(number(IDC_VARIATION), 1.0F);
    spin(IDC_VARIATION_SPIN, true);
    EXPECT_FLOAT_EQ(second.variation, 1.0F);
    spin(IDC_VARIATION_SPIN, false);
    EXPECT_FLOAT_EQ(second.variation, 0.9F);
    EXPECT_FLOAT_EQ(first.blend, 0.0F);
    EXPECT_FLOAT_EQ(first.variation, 0.0F);
}

TEST_F(PanelTextures, ColoursReachTheDefinitionTheMaterialAndTheTintTool) {
    addDefinition({WHITE, WHITE, 0.0F, 0.0F});
    m_map.setAmbient(RED);
    open();
    expand();
    dragColour(IDC_AMBIENT_COLOUR, IDC_TINT_1);
    EXPECT_EQ(m_map.getMultiTexture(0)->tint1, RED);
    EXPECT_EQ(m_map.getMultiTexture(0)->tint2, WHITE);
    dragColour(IDC_AMBIENT_COLOUR, IDC_TINT_2);
    EXPECT_EQ(m_map.getMultiTexture(0)->tint2, RED);
    EXPECT_EQ(shownInPreview(), QColor(200, 0, 0));
    dragColour(IDC_TINT_1, IDC_DIFFUSE_COLOUR);
    EXPECT_EQ(m_map.getDiffuse(), RED);
    EXPECT_EQ(m_map.getAmbient(), RED);
    dragColour(IDC_TINT_1, IDC_TINT_COLOUR);
    EXPECT_EQ(model().getToolTint(), RED);
}

// On the Details tab the preview belongs to the detail texture, but the definition's swatches still work: the
// colour is there when the Terrain tab shows the definition again.
TEST_F(PanelTextures, AColourDroppedOnTheOtherTabReachesTheDefinition) {
    addDefinition({WHITE, WHITE, 0.0F, 0.0F});
    m_map.setAmbient(BLUE);
    open();
    expand();
    selectTab(1);
    EXPECT_EQ(shownInPreview(), QColor(0, 0, 0)) << "no detail texture chosen";
    dragColour(IDC_AMBIENT_COLOUR, IDC_TINT_1);
    dragColour(IDC_AMBIENT_COLOUR, IDC_TINT_2);
    EXPECT_EQ(m_map.getMultiTexture(0)->tint1, BLUE);
    EXPECT_EQ(shownInPreview(), QColor(0, 0, 0));
    selectTab(0);
    EXPECT_EQ(shownInPreview(), QColor(0, 0, 200));
}

TEST_F(PanelTextures, TheDefinitionEditedIsTheOnePainted) {
    addDefinition({WHITE, WHITE, 0.0F, 0.0F});
    addDefinition({BLUE, BLUE, 0.0F, 0.0F});
    m_map.setAmbient(RED);
    open();
    expand();
    for (int step = 0; step < 9; ++step) {
        press(IDC_STRENGTH, Qt::Key_Right);
    }
    click(IDC_NEXT_TEXTURE);
    dragColour(IDC_AMBIENT_COLOUR, IDC_TINT_1);
    dragColour(IDC_AMBIENT_COLOUR, IDC_TINT_2);
    type(IDC_BLEND, "1");
    leave(IDC_BLEND);
    click(IDC_TOOL_PAINT);
    stroke(10, 10);
    EXPECT_EQ(m_map.getPointColour(0, 10, 10), RED);
    EXPECT_EQ(m_map.getPointBlendQ(1, 10, 10), CMemoryMap::MAX_BLEND);
    click(IDC_UNDO);
    EXPECT_EQ(m_map.getPointColour(0, 10, 10), WHITE);
    EXPECT_EQ(m_map.getPointBlendQ(1, 10, 10), 0);
}

// What the map then holds at a point, put together as the ground is drawn: the mix of the base images by the
// point's blend, times the point's colour.
TEST_F(PanelTextures, TheGroundIsPaintedAsThePreviewShows) {
    addDefinition({WHITE, WHITE, 0.0F, 0.0F});
    m_map.setAmbient({200, 120, 40, 255});
    open();
    expand();
    press(IDC_STRENGTH, Qt::Key_End);
    dragColour(IDC_AMBIENT_COLOUR, IDC_TINT_1);
    dragColour(IDC_AMBIENT_COLOUR, IDC_TINT_2);
    type(IDC_BLEND, "0.3");
    leave(IDC_BLEND);
    click(IDC_TOOL_PAINT);
    stroke(10, 10);
    const double blend = static_cast<double>(m_map.getPointBlendQ(1, 10, 10)) / CMemoryMap::MAX_BLEND;
    const qxCColour colour = m_map.getPointColour(0, 10, 10);
    const double mixed = 200.0 + (100.0 - 200.0) * blend;
    const QColor seen = shownInPreview();
    EXPECT_NEAR(seen.red(), mixed * colour.r / 255.0, 1.5);
    EXPECT_NEAR(seen.green(), mixed * colour.g / 255.0, 1.5);
    EXPECT_NEAR(seen.blue(), mixed * colour.b / 255.0, 1.5);
    EXPECT_LT(seen.blue(), seen.red() / 2) << "tinted at all";
}

TEST_F(PanelTextures, TilingIsTypedAndSteppedWithinItsRange) {
    open();
    expand();
    const auto tilingAfter = [&](const char* typed) {
        type(IDC_TILING, typed);
        leave(IDC_TILING);
        return m_map.getTextureTiling();
    };
    const auto texturesBefore = m_map.getChangeCount(MapChange::TEXTURES);
    EXPECT_EQ(tilingAfter("255"), 255);
    EXPECT_GT(m_map.getChangeCount(MapChange::TEXTURES), texturesBefore);
    spin(IDC_TILING_SPIN, true);
    spin(IDC_TILING_SPIN, true);
    EXPECT_EQ(m_map.getTextureTiling(), 256);
    EXPECT_EQ(text(IDC_TILING), "256");
    EXPECT_EQ(tilingAfter("999"), 256);
    EXPECT_EQ(text(IDC_TILING), "256");
    EXPECT_EQ(tilingAfter("-4"), 1);
    spin(IDC_TILING_SPIN, false);
    EXPECT_EQ(m_map.getTextureTiling(), 1);
}

TEST_F(PanelTextures, TexturesArePickedForTheGroundAndForDetails) {
    addDefinition({WHITE, WHITE, 0.0F, 0.0F});
    open();
    expand();
    pickTexture(IDC_SMOOTH_TEXTURE, "dark", IDOK);
    EXPECT_EQ(m_map.getTexture(qxMapLayerSmooth), m_scene.getTexture(1));
    EXPECT_EQ(shownInPreview(), QColor(100, 100, 100));
    pickTexture(IDC_ROUGH_TEXTURE, "-NONE-", IDOK);
    EXPECT_EQ(m_map.getTexture(qxMapLayerRough), nullptr);
    EXPECT_EQ(shownInPreview(), QColor(0, 0, 0)) << "one base texture is missing";
    pickTexture(IDC_WATER_TEXTURE, "tree", IDCANCEL);
    EXPECT_EQ(m_map.getTexture(qxMapLayerWater), nullptr) << "Cancel changes nothing";
    EXPECT_EQ(text(IDC_WATER_TEXTURE), "-NONE-");

    EXPECT_FALSE(isEnabled(IDC_DETAIL_TEXTURE));
    selectTab(1);
    EXPECT_TRUE(isEnabled(IDC_DETAIL_TEXTURE));
    EXPECT_FALSE(isEnabled(IDC_PREVIOUS_TEXTURE));
    EXPECT_FALSE(isEnabled(IDC_NEXT_TEXTURE));
    pickTexture(IDC_DETAIL_TEXTURE, "tree", IDOK);
    EXPECT_EQ(model().m_pDetailTexture, m_scene.getTexture(2));
    EXPECT_EQ(shownInPreview(), QColor(50, 50, 50));
    selectTab(0);
    EXPECT_EQ(shownInPreview(), QColor(0, 0, 0));
    EXPECT_TRUE(isEnabled(IDC_NEXT_TEXTURE));
}

TEST_F(PanelTextures, WithoutDefinitionsNothingIsWritten) {
    const std::vector<int> needsOne = {IDC_TINT_1,    IDC_TINT_2,        IDC_BLEND,
                                       IDC_VARIATION, IDC_GLOBAL_SMOOTH, IDC_TERRAIN_TYPES};
    open();
    for (const int id : needsOne) {
        EXPECT_FALSE(isEnabled(id)) << id;
    }
    expand();
    for (const int id : needsOne) {
        EXPECT_TRUE(isEnabled(id)) << id << ": expanding enables the whole right column";
    }
    type(IDC_BLEND, "0.5");
    leave(IDC_BLEND);
    spin(IDC_BLEND_SPIN, true);
    spin(IDC_VARIATION_SPIN, true);
    dragColour(IDC_AMBIENT_COLOUR, IDC_TINT_1);
    click(IDC_DUPLICATE_DEFINITION);
    click(IDC_DELETE_DEFINITION);
    EXPECT_EQ(m_map.getNumMultiTextures(), 0);
    for (const int id : needsOne) {
        EXPECT_FALSE(isEnabled(id)) << id << ": until the next refresh";
    }
    click(IDC_INSERT_DEFINITION);
    for (const int id : needsOne) {
        EXPECT_TRUE(isEnabled(id)) << id;
    }
    EXPECT_EQ(m_map.getMultiTexture(0)->tint1, WHITE);
}

TEST_F(PanelTextures, TerrainTypesAreEditedInPlace) {
    addDefinition({WHITE, WHITE, 0.0F, 0.0F});
    open();
    expand();
    const CModalSteps user({[&](QWidget* editor) {
        EXPECT_EQ(editor->objectName(), "dialog-237");
        auto* const noise = editor->findChild<QLineEdit*>(QString::number(IDC_NOISE));
        ASSERT_NE(noise, nullptr);
        noise->setFocus();
        noise->selectAll();
        QTest::keyClicks(noise, "8.5");
        QTest::mouseClick(editor->findChild<QWidget*>(QString::number(IDCANCEL)), Qt::LeftButton);
    }});
    click(IDC_TERRAIN_TYPES);
    EXPECT_TRUE(user.areDone());
    int edited = 0;
    for (int i = 0; i < m_map.getNumTerrainDefs(); ++i) {
        edited += m_map.getTerrainDef(i)->noise == 8.5F ? 1 : 0;
    }
    EXPECT_EQ(edited, 1);
}

// A host's timer may close the editor, and free the map, while one of the panel's dialogs stands open.
TEST_F(PanelTextures, TheEditorMayBeClosedUnderAnOpenDialog) {
    for (const int opener : {IDC_TERRAIN_TYPES, IDC_SMOOTH_TEXTURE}) {
        auto map = std::make_unique<CMemoryMap>(16, &m_scene);
        map->addMultiTexture();
        open(*map);
        expand();
        const CModalSteps user({[&](QWidget* dialog) {
            vuDestroyEditor();
            vuDestroySettings();
            map.reset();
            EXPECT_FALSE(dialog->isVisible());
        }});
        click(opener);
        EXPECT_TRUE(user.areDone());
        EXPECT_FALSE(vuIsEditorActive());
        EXPECT_EQ(panel(), nullptr);
    }
}

TEST_F(PanelTextures, GlobalSmoothChangesNothing) {
    addDefinition({WHITE, WHITE, 0.0F, 0.0F});
    m_map.setPointHeight(8, 8, 900, true);
    open();
    expand();
    const auto heights = m_map.getChangeCount(MapChange::HEIGHTS);
    click(IDC_GLOBAL_SMOOTH);
    EXPECT_EQ(m_map.getChangeCount(MapChange::HEIGHTS), heights);
    EXPECT_EQ(undoFill(), 0);
}
