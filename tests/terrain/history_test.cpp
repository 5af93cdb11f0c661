#include "terrain/support/logging_map.h"
#include "terrain/support/test_panel.h"

#include "terrain/model/map_editor_settings.h"
#include "terrain/model/map_selection.h"

#include <limits>

namespace {

class CallsOfTheHistory : public testing::Test {
protected:
    CallsOfTheHistory() {
        g_mapUndoList.clear();
        m_panel.m_pMap = &m_map;
        m_panel.m_nTool = TOOL_FLATTEN;
    }
    ~CallsOfTheHistory() override { g_mapUndoList.clear(); }

    CLoggingMap m_map;
    CTestPanel m_panel;
};

} // namespace

TEST_F(CallsOfTheHistory, ReadEveryPointBeforeTheFirstWriteAndRestoreNewestFirst) {
    strokeStart(m_panel, 8, 2, 0, 0); // the last column: the cell's right side does not exist
    strokeUpdate(m_panel, 0, 0, 0);
    using Log = std::vector<std::string>;
    EXPECT_EQ(Log(m_map.log.begin(), m_map.log.begin() + 7),
              (Log{"read blend 1 8 2", "read colour 0 8 2", "read height 8 2", "read blend 1 8 3",
                   "read colour 0 8 3", "read height 8 3", "height 8 2 40 direct"}));
    EXPECT_EQ(g_mapUndoList.getCount(), 6);

    m_map.log.clear();
    undo(m_panel);
    ASSERT_EQ(m_map.log.size(), 18U);
    EXPECT_EQ(Log(m_map.log.begin(), m_map.log.begin() + 6),
              (Log{"height 1 1 7 indirect", "colour 0 1 1 1", "blend 1 1 1 9", "height 1 0 7 indirect",
                   "colour 0 1 0 1", "blend 1 1 0 9"}));
    EXPECT_EQ(m_map.log.back(), "blend 1 8 2 9");
    EXPECT_TRUE(g_mapUndoList.isEmpty());
    m_map.log.clear();
    undo(m_panel);
    EXPECT_EQ(m_map.log, Log{});
}

using History = TerrainTest;

TEST_F(History, EachStrokeThatRecordsIsOneStep) {
    useTool(TOOL_SET_HEIGHT);
    m_panel.m_nHeight = 5;
    start(1, 1);
    stop();
    const Points first = changedHeights();
    m_panel.m_nHeight = 9;
    start(1, 1);
    update(2, 1);
    update(3, 1);
    stop();
    EXPECT_EQ(g_mapUndoList.getCount(), 16);
    undo(m_panel);
    EXPECT_EQ(changedHeights(), first);
    EXPECT_EQ(height(1, 1), 5);

    start(-9, 4); // off the grid: the first update records nothing
    update(-8, 4);
    update(6, 6);
    update(7, 6);
    undo(m_panel); // in the middle of the stroke
    EXPECT_EQ(changedHeights(), first);
    update(6, 9);
    stop();
    undo(m_panel);
    EXPECT_EQ(changedHeights(), first);
    EXPECT_EQ(g_mapUndoList.getCount(), 4);
}

TEST_F(History, AStrokeLargerThanTheCapacityIsUndoneAsFarAsItIsKept) {
    constexpr int DIM = 340;
    constexpr int SIDE = DIM + 1;
    CMemoryMap large(DIM, nullptr);
    m_panel.m_pMap = &large;
    useTool(TOOL_FLATTEN);
    start(0, 0); // an earlier stroke, which drops out
    stop();
    selectAll(m_panel);
    useTool(TOOL_RAISE);
    start(0, 0);
    update(0, 0, -7);
    stop();
    EXPECT_EQ(g_mapUndoList.getCount(), CMapUndoList::CAPACITY);
    undo(m_panel);
    EXPECT_TRUE(g_mapUndoList.isEmpty());
    for (int x = 0; x < SIDE; ++x) {
        for (int z = 0; z < SIDE; ++z) { // recorded x by x: the first ones are lost
            const bool kept = x * SIDE + z >= SIDE * SIDE - CMapUndoList::CAPACITY;
            ASSERT_EQ(large.getPointHeight(x, z), kept ? 0 : 7) << x << ' ' << z;
        }
    }
    m_panel.m_pMap = &m_map;
}

TEST_F(History, BelongsToTheMapOfTheRememberedSettings) {
    const auto settings = [](const CMapEditorModel& panel) {
        return std::tuple(panel.m_nTool, panel.m_nBrushSize, panel.m_nStrength, panel.m_nHeight);
    };
    g_savedSettings = {.strength = 4, .height = 77};
    g_mapUndoList.push({});
    restoreSettings(m_panel); // nothing valid: reset, but the strength stays
    EXPECT_EQ(settings(m_panel), std::tuple(TOOL_SELECT, BRUSH_CELL, 4, 0));
    EXPECT_TRUE(g_mapUndoList.isEmpty());

    g_mapUndoList.push({});
    m_panel.m_nTool = TOOL_PAINT;
    m_panel.m_nBrushSize = BRUSH_DISC;
    m_panel.m_nStrength = 7;
    m_panel.m_nHeight = 1000;
    saveSettings(m_panel);
    CTestPanel again;
    again.m_pMap = &m_map;
    restoreSettings(again);
    EXPECT_EQ(settings(again), settings(m_panel));
    EXPECT_EQ(g_mapUndoList.getCount(), 1);

    CMemoryMap other(4, nullptr);
    again.m_pMap = &other;
    restoreSettings(again);
    EXPECT_EQ(settings(again), std::tuple(TOOL_SELECT, BRUSH_CELL, 7, 0));
    EXPECT_TRUE(g_mapUndoList.isEmpty());
    g_savedSettings = {};
}

using FarAway = TerrainTest;

TEST_F(FarAway, AnyIntsAreTakenByEveryTool) {
    constexpr int LOW = std::numeric_limits<int>::min();
    constexpr int HIGH = std::numeric_limits<int>::max();
    for (const auto& [x, z] : {std::pair{LOW, HIGH}, {HIGH, LOW}, {HIGH, HIGH}, {LOW, LOW}}) {
        for (int tool = -1; tool <= 14; ++tool) {
            for (int brush = -1; brush <= 6; ++brush) {
                useTool(tool);
                m_panel.m_nBrushSize = brush;
                m_panel.m_nStrength = brush % 2 == 0 ? HIGH : 10;
                start(x, z, brush, brush);
                update(z, x, LOW);
                update(x, x, HIGH);
                stop();
            }
        }
    }
    EXPECT_EQ(marked().size(), 0U);
}

TEST_F(FarAway, ASelectionOfTheWholePlaneIsTheWholeMap) {
    constexpr int LOW = std::numeric_limits<int>::min();
    constexpr int HIGH = std::numeric_limits<int>::max();
    select(HIGH, LOW, LOW, HIGH);
    EXPECT_TRUE(m_panel.m_selection.exists);
    useTool(TOOL_RAISE);
    start(0, 0);
    update(0, 0, LOW); // up as far as the engine goes
    EXPECT_EQ(changedHeights().size(), 17U * 17U);
    EXPECT_EQ(height(16, 16), CMemoryMap::MAX_HEIGHT);
    stop();
    EXPECT_EQ(g_mapUndoList.getCount(), 17 * 17);
    undo(m_panel);
    EXPECT_EQ(changedHeights(), Points{});
}
