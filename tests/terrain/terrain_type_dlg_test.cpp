#include "terrain/panel/terrain_type_dlg.h"

#include "engine/memory/memory_map.h"
#include "resources/resource_ids.h"
#include "support/modal_steps.h"
#include "support/ui_driver.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>

#include <algorithm>
#include <cstring>
#include <numeric>
#include <span>

namespace {

using testing::Each;

/// The editor of a map with the types "Rock" (0), "Grass" (1) and three more that sort behind them, each
/// with values of its own.
class TerrainTypeDlgTest : public testing::Test {
protected:
    TerrainTypeDlgTest() {
        const char* const names[] = {"Rock", "Grass", "Sand", "Snow", "Tundra"};
        for (int i = 0; i < m_map.getNumTerrainDefs(); ++i) {
            std::strncpy(type(i).name, names[i], sizeof type(i).name - 1);
            const float base = 1000.0F * static_cast<float>(i);
            std::iota(std::begin(type(i).filter), std::end(type(i).filter), base);
            type(i).noise = base + 100.0F;
            type(i).effectOnNeighbours = base + 200.0F;
            type(i).weighting = base + 300.0F;
            type(i).preserveFlatAreas = i % 2 == 0;
        }
    }

    _qxMapTerrainDef& type(int index) { return *m_map.getTerrainDef(index); }

    /// Open the editor on `map` and let the user take these steps.
    static void run(qxCMap& map, std::vector<CModalSteps::Step> steps) {
        CTerrainTypeDlg editor(&map);
        const CModalSteps user(std::move(steps));
        editor.DoModal();
        EXPECT_TRUE(user.areDone());
    }

    static void click(const QWidget* editor, int id) {
        ui::click(ui::control(*editor, id), QPoint(8, 6)); // a check box hears only its box and text
    }

    static QString text(const QWidget* editor, int id) { return ui::control<QLineEdit>(*editor, id).text(); }

    /// Replace an edit's text and leave it for the next control.
    static void enter(const QWidget* editor, int id, const char* newText) {
        ui::type(ui::control(*editor, id), newText);
        ui::press(Qt::Key_Return);
        EXPECT_FALSE(ui::control(*editor, id).hasFocus());
    }

    static void chooseType(const QWidget* editor, const QString& name) {
        auto& box = ui::control<QComboBox>(*editor, IDC_TERRAIN_TYPE);
        box.setFocus();
        while (box.currentText() != name) {
            const int before = box.currentIndex();
            QTest::keyClick(&box, box.findText(name) > before ? Qt::Key_Down : Qt::Key_Up);
            ASSERT_NE(box.currentIndex(), before);
        }
    }

    CMemoryMap m_map{8, nullptr};
};

TEST_F(TerrainTypeDlgTest, EveryFieldShowsAndStoresItsValue) {
    run(m_map, {[&](const QWidget* editor) {
            EXPECT_EQ(ui::control<QComboBox>(*editor, IDC_TERRAIN_TYPE).currentText(), "Grass") << "sorted";
            EXPECT_EQ(text(editor, IDC_NOISE), "1100");
            enter(editor, IDC_NOISE, "7.5");
            chooseType(editor, "Rock");
            for (int row = 0; row < 5; ++row) {
                for (int column = 0; column < 5; ++column) {
                    const int id = IDC_FILTER_FIRST + 5 * row + column;
                    EXPECT_EQ(text(editor, id), QString::number(5 * column + row));
                    enter(editor, id, std::to_string(500 + 5 * row + column).c_str());
                    EXPECT_EQ(type(0).filter[5 * column + row], static_cast<float>(500 + 5 * row + column));
                }
            }
            EXPECT_EQ(text(editor, IDC_EFFECT_ON_NEIGHBOURS), "200");
            enter(editor, IDC_EFFECT_ON_NEIGHBOURS, "-0.25");
            EXPECT_EQ(text(editor, IDC_WEIGHTING), "300");
            enter(editor, IDC_WEIGHTING, "1e3");
            EXPECT_EQ(text(editor, IDC_WEIGHTING), "1000");
            EXPECT_TRUE(ui::control<QAbstractButton>(*editor, IDC_PRESERVE_FLAT_AREAS).isChecked());
            click(editor, IDC_PRESERVE_FLAT_AREAS);
            click(editor, IDCANCEL);
        }});
    EXPECT_EQ(type(0).effectOnNeighbours, -0.25F) << "Cancel takes nothing back";
    EXPECT_EQ(type(0).weighting, 1000.0F);
    EXPECT_EQ(type(0).noise, 100.0F);
    EXPECT_EQ(type(1).noise, 7.5F);
    EXPECT_FALSE(type(0).preserveFlatAreas);
}

TEST_F(TerrainTypeDlgTest, NormalizeSumsTheFilterWithTheCellJustLeft) {
    std::ranges::fill(type(1).filter, 1.0F);
    run(m_map, {[&](const QWidget* editor) {
            ui::type(ui::control(*editor, IDC_FILTER_LAST), "5");
            click(editor, IDC_NORMALIZE);
            EXPECT_EQ(text(editor, IDC_WEIGHTING), "29");
            click(editor, IDOK);
        }});
    EXPECT_EQ(type(1).weighting, 29.0F);
    EXPECT_EQ(type(0).weighting, 300.0F);
}

// The fields show six digits; a record has more.
TEST_F(TerrainTypeDlgTest, PassingThroughAFieldChangesNothing) {
    const float third = 1.0F / 3.0F;
    std::ranges::fill(type(1).filter, third);
    type(1).noise = third;
    run(m_map, {[&](const QWidget* editor) {
            enter(editor, IDC_NOISE, "0.333333");
            enter(editor, IDC_FILTER_FIRST, "0.5");
            click(editor, IDOK);
        }});
    EXPECT_EQ(type(1).noise, third);
    EXPECT_EQ(type(1).filter[0], 0.5F);
    EXPECT_THAT(std::span(type(1).filter).subspan(1), Each(third));
}

TEST_F(TerrainTypeDlgTest, WhenItsPanelIsClosedItEndsAndLeavesTheMapAlone) {
    CTerrainTypeDlg editor(&m_map);
    const CModalSteps user({[&](const QWidget* window) {
        ui::type(ui::control(*window, IDC_NOISE), "5");
        editor.abandon();
        click(window, IDC_PRESERVE_FLAT_AREAS);
        click(window, IDC_NORMALIZE);
    }});
    EXPECT_EQ(editor.DoModal(), IDCANCEL);
    EXPECT_EQ(type(1).noise, 1100.0F);
    EXPECT_EQ(type(1).weighting, 1300.0F);
}

} // namespace
