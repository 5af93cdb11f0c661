#include "terrain/support/test_panel.h"

#include "terrain/edit_cursor.h"
#include "terrain/model/map_selection.h"

#include <algorithm>
#include <set>
#include <tuple>

namespace {

using Cursors = std::vector<std::tuple<int, int, int>>;

class EditCursorTest : public TerrainTest {
protected:
    /// The cursors of a pointer over cell (8, 8), relative to it.
    Cursors cursors(int tool, int brush, int edge, int corner, CursorUse use = CursorUse::HOVER) {
        m_panel.m_nTool = tool;
        m_panel.m_nBrushSize = brush;
        updateCursor(m_panel, 8, 8, edge, corner, use);
        Cursors found;
        for (const EditCursor& cursor : m_map.getEditCursors()) {
            found.emplace_back(cursor.x - 8, cursor.z - 8, cursor.kind);
        }
        return found;
    }
};

} // namespace

TEST_F(EditCursorTest, ShowsWhatTheToolTouches) {
    const struct {
        int tool, brush, edge, corner;
        Cursors shown;
    } cases[] = {
        {TOOL_RAISE, BRUSH_POINT, 0, 2, {{0, 0, 8}}},
        {TOOL_RAISE, BRUSH_POINT, 0, 4, {}},
        {TOOL_RAISE, BRUSH_EDGE, 3, 0, {{0, 0, 1}}},
        {TOOL_RAISE, BRUSH_EDGE, 6, 0, {}},
        {TOOL_RAISE, BRUSH_CELL, 0, 0, {{0, 0, 0}}},
        {TOOL_RAISE, BRUSH_PLUS, 0, 0, {{0, 0, 13}, {1, 0, 14}, {0, 1, 12}, {1, 1, 11}}},
        {TOOL_RAISE, BRUSH_BLOCK, 0, 0, {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}}},
        {TOOL_RAISE, BRUSH_SIZE_COUNT, 0, 0, {}},
        {TOOL_RAISE, -1, 0, 0, {}},
        {TOOL_GET_HEIGHT, BRUSH_DISC, 0, 3, {{0, 0, 7}}}, // one corner, whatever the brush
    };
    for (const auto& c : cases) {
        EXPECT_EQ(cursors(c.tool, c.brush, c.edge, c.corner), c.shown) << c.tool << ' ' << c.brush;
    }
    for (int tool = -1; tool < 14; ++tool) {
        const bool isCell = std::set{0, 6, 7, 8, 10, 11}.contains(tool);
        if (tool != TOOL_GET_HEIGHT) {
            EXPECT_EQ(cursors(tool, BRUSH_DISC, 0, 0).size(), isCell ? 1U : 12U) << tool;
        }
    }
    m_panel.m_bHideCursor = 1; // in a stroke only
    EXPECT_EQ(cursors(TOOL_RAISE, BRUSH_CELL, 0, 0, CursorUse::STROKE), Cursors{});
    EXPECT_EQ(cursors(TOOL_RAISE, BRUSH_CELL, 0, 0, CursorUse::HOVER).size(), 1U);
}

TEST_F(EditCursorTest, HighlightsTheDetailUnderThePointer) {
    qxCMapDetailRecord* const detail =
        m_map.addDetail(qxDetailTypeQuad, nullptr, {8, 0, 8}, {9, 0, 8}, {8, 0, 9}, 1.0F);
    m_panel.isDetails = true;
    EXPECT_EQ(cursors(DETAIL_MOVE, 2, 0, 0), (Cursors{{0, 0, 15}}));
    EXPECT_EQ(m_panel.m_pCurrentDetail, detail);
    EXPECT_EQ(detail->highlighted, 1);
    cursors(DETAIL_MOVE, 2, 0, 0, CursorUse::STROKE);
    EXPECT_EQ(detail->highlighted, 0);
    cursors(DETAIL_MOVE, 2, 0, 0);
    updateCursor(m_panel, 2, 2, 0, 0, CursorUse::HOVER);
    EXPECT_EQ(m_panel.m_pCurrentDetail, nullptr);
    EXPECT_EQ(detail->highlighted, 0);
    EXPECT_EQ(cursors(DETAIL_TOOL_COUNT, 4, 0, 0).size(),
              1U); // no detail tool: as on the other tab, here Drain
}

using Marks = TerrainTest;

TEST_F(Marks, OutlineARectangleInAnyCornerOrder) {
    const Points outline{{3, 4}, {4, 4}, {5, 4}, {3, 5}, {5, 5}, {3, 6}, {4, 6}, {5, 6}};
    drawMarkRect(m_map, 5, 4, 3, 6, Mark::ON);
    EXPECT_EQ(marked(), outline);
    drawMarkRect(m_map, 4, 5, 4, 5, Mark::ON);
    drawMarkRect(m_map, 3, 6, 5, 4, Mark::OFF);
    EXPECT_EQ(marked(), (Points{{4, 5}}));
}

TEST_F(Marks, TheRubberBandBecomesTheOutlineOfTheSelection) {
    useTool(TOOL_SELECT);
    start(10, 10);
    update(3, 3);
    update(5, 12);
    stop();
    const MapSelection& selection = m_panel.m_selection;
    EXPECT_EQ(std::tuple(selection.x0, selection.z0, selection.x1, selection.z1), std::tuple(5, 10, 10, 12));
    EXPECT_EQ(std::tuple(selection.width, selection.height, selection.exists), std::tuple(6, 3, true));
    EXPECT_EQ(marked().size(), 14U); // 6 x 3 without the inner 4 x 1
    start(1, 1);                     // a new one begins: the old one goes
    EXPECT_EQ(marked(), Points{});
}

TEST_F(Marks, MagnetKeepsTheSelectionAndLeavesItsPoint) {
    select(2, 2, 4, 4);
    useTool(TOOL_MAGNET);
    start(10, 10);
    stop();
    EXPECT_TRUE(m_panel.m_selection.exists);
    EXPECT_TRUE(std::ranges::count(marked(), std::pair(10, 10)) == 1);
    useTool(TOOL_SMOOTH);
    start(12, 12);
    EXPECT_FALSE(m_panel.m_selection.exists);
    stop();
    EXPECT_EQ(marked(), (Points{{10, 10}}));
}
