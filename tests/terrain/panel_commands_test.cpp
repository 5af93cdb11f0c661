#include "terrain/panel_fixture.h"

#include "host/veskutil.h"
#include "terrain/model/map_undo_list.h"
#include "terrain/panel/map_editor_buttons.h"

#include <QTest>

#include <algorithm>
#include <set>

namespace {

using std::ranges::count_if;

int changedHeights(const CMemoryMap& map) {
    return static_cast<int>(count_if(map.getHeights(), [](auto height) { return height != 0; }));
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

TEST_F(PanelTest, AHeightOutOfRangeIsRefusedAndTheLastGoodOneStays) {
    open();
    type(IDC_HEIGHT, "77");
    click(IDC_HIDE_CURSOR);
    type(IDC_HEIGHT, "1024");
    EXPECT_EQ(messageDuring([] { QTest::keyClick(control(IDC_HEIGHT), Qt::Key_Tab); }),
              "Enter an integer between 0 and 1023.");
    EXPECT_EQ(model().m_nHeight, 77);
    EXPECT_EQ(text(IDC_HEIGHT), "77");
    EXPECT_TRUE(control(IDC_HEIGHT)->hasFocus());
    type(IDC_HEIGHT, "1023");
    EXPECT_EQ(model().m_nHeight, 77) << "not before the field is left";
    QTest::keyClick(control(IDC_HEIGHT), Qt::Key_Return);
    EXPECT_EQ(model().m_nHeight, 1023);
    EXPECT_FALSE(control(IDC_HEIGHT)->hasFocus()) << "Enter moves on";
    ASSERT_NE(panel(), nullptr) << "and presses nothing";
    type(IDC_HEIGHT, "12");
    click(IDC_TOOL_SET_HEIGHT);
    EXPECT_EQ(model().m_nHeight, 12);
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
    click(IDC_TOOL_GET_GRADIENT);
    stroke(10, 11);
    EXPECT_NEAR(text(IDC_GRADIENT).toFloat(), m_map.getGradient(10, 11), 0.001);
    EXPECT_GT(text(IDC_GRADIENT).toFloat(), 45.0F);
    EXPECT_FALSE(isEnabled(IDC_GRADIENT));
}

TEST_F(PanelTest, AMapOutsideAnySceneHasNoFogToSwitch) {
    CMemoryMap loose(8, nullptr);
    open(loose);
    click(IDC_FOG);
    EXPECT_TRUE(vuIsEditorActive());
    vuDestroyEditor();
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
        EXPECT_EQ(value(IDC_UNDO_FILL), strokes * 4225 * 100 / CMapUndoList::CAPACITY);
    }
    click(IDC_SELECT_ALL);
    EXPECT_TRUE(model().m_selection.exists);
    click(IDC_DESELECT);
    EXPECT_FALSE(model().m_selection.exists);
    click(IDC_UNDO);
    EXPECT_EQ(value(IDC_UNDO_FILL), 4);
    EXPECT_EQ(m_map.getPointHeight(3, 3), 9);
    EXPECT_TRUE(isEnabled(IDC_UNDO));
    click(IDC_UNDO);
    EXPECT_EQ(value(IDC_UNDO_FILL), 0);
    EXPECT_EQ(changedHeights(m_map), 0);
    EXPECT_FALSE(isEnabled(IDC_UNDO));
    EXPECT_FALSE(isEnabled(IDC_REDO));
}
