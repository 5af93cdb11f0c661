#include "terrain/panel_fixture.h"

#include "host/veskutil.h"
#include "resources/resource_ids.h"
#include "terrain/model/map_undo_list.h"
#include "terrain/panel/map_editor_buttons.h"
#include "terrain/panel/map_editor_dlg.h"

#include <QTest>

#include <algorithm>
#include <array>
#include <set>
#include <vector>

namespace {

using std::ranges::count_if;

int changedHeights(const CMemoryMap& map) {
    return static_cast<int>(count_if(map.getHeights(), [](auto height) { return height != 0; }));
}

int markedPoints(const CMemoryMap& map) {
    return static_cast<int>(count_if(map.getMarkers(), [](auto marker) { return marker.a != 0; }));
}

} // namespace

TEST_F(PanelTest, AToolButtonPicksItsToolAndDecidesWhetherTheBrushSizeMatters) {
    open();
    const std::set<int> sized = {TOOL_RAISE, TOOL_FLATTEN, TOOL_SET_HEIGHT, TOOL_TINT, TOOL_PAINT};
    for (int tool = TOOL_ROUGHEN; tool >= TOOL_SELECT; --tool) {
        SCOPED_TRACE(tool);
        click(TOOL_BUTTONS[static_cast<std::size_t>(tool)].controlId);
        EXPECT_EQ(model().m_nTool, tool);
        for (std::size_t other = 0; other < TOOL_BUTTONS.size(); ++other) {
            EXPECT_EQ(isChecked(TOOL_BUTTONS[other].controlId), static_cast<int>(other) == tool);
        }
        for (const IconButton& brush : BRUSH_BUTTONS) {
            EXPECT_EQ(isEnabled(brush.controlId), sized.contains(tool));
        }
    }
}

TEST_F(PanelTest, ABrushButtonSetsTheSizeThatTheNextStrokeTouches) {
    open();
    click(IDC_TOOL_RAISE);
    const std::array<int, 6> touched = {1, 2, 4, 5, 9, 21};
    for (std::size_t size = 0; size < BRUSH_BUTTONS.size(); ++size) {
        SCOPED_TRACE(size);
        click(BRUSH_BUTTONS[size].controlId);
        stroke(20, 20, -7);
        EXPECT_EQ(changedHeights(m_map), touched[size]);
        click(IDC_UNDO);
        EXPECT_EQ(changedHeights(m_map), 0);
    }
}

TEST_F(PanelTest, TheStrengthSliderShowsItsValueAndReachesTheTools) {
    open();
    EXPECT_EQ(text(IDC_STRENGTH_TEXT), "0") << "nothing was remembered and nothing read yet";
    EXPECT_EQ(sliderPosition(), 1);
    for (int key = 0; key < 20; ++key) {
        press(IDC_STRENGTH, Qt::Key_Right);
    }
    EXPECT_EQ(text(IDC_STRENGTH_TEXT), "10");
    EXPECT_EQ(model().m_nStrength, 10);
    press(IDC_STRENGTH, Qt::Key_Left);
    EXPECT_EQ(text(IDC_STRENGTH_TEXT), "9");

    // A radius of 9 points and one more on each side, minus what the rim's weight leaves at zero.
    click(IDC_TOOL_MAGNET);
    stroke(30, 30, -1000);
    EXPECT_GT(m_map.getPointHeight(30 - 8, 30), 0);
    EXPECT_EQ(m_map.getPointHeight(30 - 10, 30), 0);
}

TEST_F(PanelTest, AHeightTypedTakesEffectWhenTheFieldIsLeft) {
    open();
    click(IDC_TOOL_SET_HEIGHT);
    type(IDC_HEIGHT, "345");
    EXPECT_EQ(model().m_nHeight, 0);
    QTest::keyClick(control(IDC_HEIGHT), Qt::Key_Return);
    EXPECT_EQ(model().m_nHeight, 345);
    EXPECT_FALSE(control(IDC_HEIGHT)->hasFocus()) << "Enter moves on";
    ASSERT_NE(panel(), nullptr) << "and presses nothing";
    stroke(5, 5);
    EXPECT_EQ(m_map.getPointHeight(6, 6), 345);

    type(IDC_HEIGHT, "12");
    click(IDC_TOOL_SET_HEIGHT);
    EXPECT_EQ(model().m_nHeight, 12);
}

TEST_F(PanelTest, AHeightOutOfRangeOrNoNumberIsRefusedAndTheLastGoodOneStays) {
    open();
    type(IDC_HEIGHT, "77");
    click(IDC_HIDE_CURSOR);
    struct Refusal {
        const char* typed;
        const char* message;
    };
    const Refusal refusals[] = {{"1024", "Enter an integer between 0 and 1023."},
                                {"-1", "Enter an integer between 0 and 1023."},
                                {"high", "Enter an integer."},
                                {"", "Enter an integer."}};
    for (const Refusal& refusal : refusals) {
        SCOPED_TRACE(refusal.typed);
        type(IDC_HEIGHT, refusal.typed);
        if (*refusal.typed == '\0') {
            QTest::keyClick(control(IDC_HEIGHT), Qt::Key_Delete);
        }
        EXPECT_EQ(messageDuring([] { QTest::keyClick(control(IDC_HEIGHT), Qt::Key_Tab); }), refusal.message);
        EXPECT_EQ(model().m_nHeight, 77);
        EXPECT_EQ(text(IDC_HEIGHT), "77");
        EXPECT_TRUE(control(IDC_HEIGHT)->hasFocus());
    }
    type(IDC_HEIGHT, "1023");
    QTest::keyClick(control(IDC_HEIGHT), Qt::Key_Tab);
    EXPECT_EQ(model().m_nHeight, 1023);
}

TEST_F(PanelTest, GetHeightAndGetGradientShowWhatTheyRead) {
    open();
    m_map.setPointHeight(11, 11, 20000, true);
    click(IDC_TOOL_GET_HEIGHT);
    stroke(10, 10, 0, 2);
    EXPECT_EQ(text(IDC_HEIGHT), "20000");
    // The user typed nothing wrong: no command stops at a height that came from the map.
    click(IDC_TOOL_SET_HEIGHT);
    EXPECT_EQ(model().m_nTool, TOOL_SET_HEIGHT);
    stroke(40, 40);
    EXPECT_EQ(m_map.getPointHeight(40, 40), 20000);

    click(IDC_TOOL_GET_GRADIENT);
    stroke(10, 11);
    EXPECT_NEAR(text(IDC_GRADIENT).toFloat(), m_map.getGradient(10, 11), 0.001);
    EXPECT_GT(text(IDC_GRADIENT).toFloat(), 45.0F);
    EXPECT_FALSE(isEnabled(IDC_GRADIENT));
}

TEST_F(PanelTest, HideCursorHidesItDuringStrokesOnly) {
    open();
    for (const bool hide : {false, true, false}) {
        SCOPED_TRACE(hide);
        if (isChecked(IDC_HIDE_CURSOR) != hide) {
            click(IDC_HIDE_CURSOR);
        }
        vuUpdateCursor(8, 8, 0, 0);
        EXPECT_EQ(m_map.getEditCursors().size(), 1U);
        vuStartEditing(8, 8, 0, 0);
        vuUpdateEditing(9, 9, 0, 0, 0, 0);
        EXPECT_EQ(m_map.getEditCursors().empty(), hide);
        vuStopEditing();
    }
}

TEST_F(PanelTest, TheTogglesSwitchTheMapsFlagAndTheFogAndShowThemWhenReopened) {
    open();
    EXPECT_FALSE(isChecked(IDC_MAP_FLAG));
    EXPECT_FALSE(isChecked(IDC_FOG));
    click(IDC_MAP_FLAG);
    EXPECT_TRUE(m_map.hasFlag(qxMapFlagChecker));
    EXPECT_EQ(m_scene.getFogMode(), qxFogModeOff);
    click(IDC_FOG);
    EXPECT_EQ(m_scene.getFogMode(), qxFogModeOn);
    reopen();
    EXPECT_TRUE(isChecked(IDC_MAP_FLAG));
    EXPECT_TRUE(isChecked(IDC_FOG));
    click(IDC_MAP_FLAG);
    click(IDC_FOG);
    EXPECT_FALSE(m_map.hasFlag(qxMapFlagChecker));
    EXPECT_EQ(m_scene.getFogMode(), qxFogModeOff);
}

TEST_F(PanelTest, AMapOutsideAnySceneHasNoFogToSwitch) {
    CMemoryMap loose(8, nullptr);
    open(loose);
    click(IDC_FOG);
    EXPECT_TRUE(vuIsEditorActive());
    vuDestroyEditor();
}

TEST_F(PanelTest, SelectAllAndDeselectDrawAndEraseTheOutline) {
    open();
    expand();
    click(IDC_SELECT_ALL);
    EXPECT_EQ(markedPoints(m_map), 4 * 63);
    EXPECT_TRUE(model().m_selection.exists);
    click(IDC_DESELECT);
    EXPECT_EQ(markedPoints(m_map), 0);
    EXPECT_FALSE(model().m_selection.exists);
}

TEST_F(PanelTest, UndoTakesBackStrokesAndShowsHowFullTheHistoryIs) {
    open();
    EXPECT_TRUE(isEnabled(IDC_UNDO)) << "as the template has it, until the first stroke";
    EXPECT_FALSE(isEnabled(IDC_REDO));
    click(IDC_TOOL_SET_HEIGHT);
    type(IDC_HEIGHT, "9");
    expand();
    // 65 x 65 points a stroke: 4.2 percent of the history.
    for (int strokes = 1; strokes <= 2; ++strokes) {
        click(IDC_SELECT_ALL);
        stroke(0, 0);
        EXPECT_EQ(undoFill(), strokes * 4225 * 100 / CMapUndoList::CAPACITY);
    }
    click(IDC_UNDO);
    EXPECT_EQ(undoFill(), 4);
    EXPECT_EQ(m_map.getPointHeight(3, 3), 9);
    EXPECT_TRUE(isEnabled(IDC_UNDO));
    click(IDC_UNDO);
    EXPECT_EQ(undoFill(), 0);
    EXPECT_EQ(changedHeights(m_map), 0);
    EXPECT_FALSE(isEnabled(IDC_UNDO));
    EXPECT_FALSE(isEnabled(IDC_REDO));

    stroke(0, 0);
    EXPECT_TRUE(isEnabled(IDC_UNDO));
    click(IDC_UNDO);
    click(IDC_UNDO);
    EXPECT_EQ(changedHeights(m_map), 0);
}

TEST_F(PanelTest, EachTabKeepsItsToolAndShowsItsIcons) {
    open();
    click(IDC_TOOL_PAINT);
    selectTab(1);
    EXPECT_TRUE(model().isDetailsTab());
    EXPECT_EQ(model().m_nTool, DETAIL_ADD_QUAD);
    EXPECT_TRUE(isChecked(IDC_TOOL_SELECT));
    EXPECT_TRUE(isEnabled(IDC_BRUSH_CELL)) << "until the next refresh";
    click(IDC_TOOL_SET_HEIGHT);
    EXPECT_EQ(model().m_nTool, DETAIL_ROTATE);
    EXPECT_FALSE(isEnabled(IDC_BRUSH_CELL));
    EXPECT_FALSE(isEnabled(IDC_TOOL_PAINT));

    selectTab(0);
    EXPECT_FALSE(model().isDetailsTab());
    EXPECT_EQ(model().m_nTool, TOOL_PAINT);
    EXPECT_TRUE(isChecked(IDC_TOOL_PAINT));
    EXPECT_TRUE(isEnabled(IDC_TOOL_PAINT));
    selectTab(1);
    EXPECT_EQ(model().m_nTool, DETAIL_ROTATE);
    EXPECT_TRUE(isChecked(IDC_TOOL_SET_HEIGHT));
}

TEST_F(PanelTest, WithoutFullEditingTheTerrainHasNoToolsAndThereIsNoClose) {
    for (const bool full : {true, false}) {
        SCOPED_TRACE(full);
        open(full);
        EXPECT_EQ(isShown(IDC_CLOSE), full);
        EXPECT_EQ(isEnabled(IDC_CLOSE), full);
        for (const int tab : {0, 1}) {
            SCOPED_TRACE(tab);
            selectTab(tab);
            std::vector<int> enabled;
            for (std::size_t tool = 0; tool < TOOL_BUTTONS.size(); ++tool) {
                if (isEnabled(TOOL_BUTTONS[tool].controlId)) {
                    enabled.push_back(static_cast<int>(tool));
                }
            }
            const std::vector<int> terrain = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
            const std::vector<int> details = {0, 1, 2, 3, 4, 5, 6, 7};
            const std::vector<int> detailsOfGuests = {0, 1, 2, 3, 4, 6, 7};
            const std::vector<int> none;
            EXPECT_EQ(enabled, tab == 0 ? (full ? terrain : none) : (full ? details : detailsOfGuests));
        }
        vuDestroyEditor();
    }
}
