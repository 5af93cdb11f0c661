#include "terrain/panel_fixture.h"

#include "engine/memory/engine_directories.h"
#include "engine/qx_texture.h"
#include "host/veskutil.h"
#include "support/modal_steps.h"
#include "support/temp_directory.h"
#include "support/tga_bytes.h"

#include <QApplication>
#include <QListWidget>
#include <QTest>

namespace {

constexpr qxCColour RED{255, 0, 0, 255};
constexpr qxCColour BLUE{0, 0, 255, 255};
constexpr qxCColour WHITE{255, 255, 255, 255};

/// A map with two definitions on two plain base images of 32 x 32, the smooth one light, the rough one dark.
class PanelTextures : public PanelTest {
protected:
    PanelTextures() {
        CEngineDirectories::setDirectories({m_folder.path()});
        m_map.setTexture(qxMapLayerSmooth, addTexture("light", '\xC8')); // 200
        m_map.setTexture(qxMapLayerRough, addTexture("dark", 'd'));      // 100
        addTexture("tree", '2');                                         // 50
    }

    ~PanelTextures() override {
        vuDestroyEditor();
        CEngineDirectories::setDirectories({});
    }

    qxCTexture* addTexture(const std::string& name, char grey) {
        m_folder.write(name + ".tga", makeTga(32, 32, 8, std::string(32 * 32, grey)));
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

    static void dragColour(int from, int to) { ui::drag(*control(from), *control(to)); }

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
            auto& entries = ui::control<QListWidget>(*list, IDC_TEXTURES);
            EXPECT_EQ(entries.currentItem()->text(), text(picker));
            const auto found = entries.findItems(name, Qt::MatchExactly);
            ASSERT_EQ(found.size(), 1);
            ui::click(*entries.viewport(), entries.visualItemRect(found.front()).center());
            ui::click(ui::control(*list, button));
        }});
        click(picker);
        EXPECT_TRUE(user.areDone());
    }

    CTempDirectory m_folder;
};

} // namespace

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

    selectTab(1); // the preview belongs to the detail texture, the swatches still to the definition
    EXPECT_EQ(shownInPreview(), QColor(0, 0, 0)) << "no detail texture chosen";
    m_map.setAmbient(BLUE);
    dragColour(IDC_TINT_COLOUR, IDC_AMBIENT_COLOUR);
    EXPECT_EQ(m_map.getAmbient(), RED);
    selectTab(0);
    EXPECT_EQ(shownInPreview(), QColor(200, 0, 0));
}

TEST_F(PanelTextures, TilingIsTypedAndSteppedWithinItsRange) {
    open();
    expand();
    const struct {
        const char* typed;
        bool up;
        int stepped;
    } cases[] = {{"255", true, 256}, {"999", true, 256}, {"-4", false, 1}, {"7", false, 6}};
    for (const auto& c : cases) {
        type(IDC_TILING, c.typed);
        leave(IDC_TILING);
        spin(IDC_TILING_SPIN, c.up);
        EXPECT_EQ(m_map.getTextureTiling(), c.stepped);
        EXPECT_EQ(text(IDC_TILING).toInt(), c.stepped);
    }
}

TEST_F(PanelTextures, TexturesArePickedForTheGroundAndForDetails) {
    addDefinition({WHITE, WHITE, 0.0F, 0.0F});
    open();
    expand();
    pickTexture(IDC_SMOOTH_TEXTURE, "dark", IDOK);
    EXPECT_EQ(m_map.getTexture(qxMapLayerSmooth), m_scene.getTexture(1));
    EXPECT_EQ(text(IDC_SMOOTH_TEXTURE), "dark");
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
