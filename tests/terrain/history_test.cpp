#include "terrain/support/logging_map.h"
#include "terrain/support/test_panel.h"

#include "terrain/map_editor_settings.h"
#include "terrain/map_selection.h"

#include <limits>

namespace {

class CallsOfTheHistory : public testing::Test {
protected:
    CallsOfTheHistory() {
        g_mapUndoList.clear();
        panel.m_pMap = &map;
        panel.m_nTool = TOOL_FLATTEN;
    }
    ~CallsOfTheHistory() override { g_mapUndoList.clear(); }

    CLoggingMap map;
    CTestPanel panel;
};

} // namespace

TEST_F(CallsOfTheHistory, ReadEveryPointBeforeTheFirstWriteAndRestoreNewestFirst) {
    strokeStart(panel, 8, 2, 0, 0); // the last column: the cell's right side does not exist
    strokeUpdate(panel, 0, 0, 0);
    using Log = std::vector<std::string>;
    EXPECT_EQ(Log(map.log.begin(), map.log.begin() + 7),
              (Log{"read blend 1 8 2", "read colour 0 8 2", "read height 8 2", "read blend 1 8 3",
                   "read colour 0 8 3", "read height 8 3", "height 8 2 40 direct"}));
    EXPECT_EQ(g_mapUndoList.getCount(), 6);

    map.log.clear();
    undo(panel);
    ASSERT_EQ(map.log.size(), 18U);
    EXPECT_EQ(Log(map.log.begin(), map.log.begin() + 6),
              (Log{"height 1 1 7 indirect", "colour 0 1 1 1", "blend 1 1 1 9", "height 1 0 7 indirect",
                   "colour 0 1 0 1", "blend 1 1 0 9"}));
    EXPECT_EQ(map.log.back(), "blend 1 8 2 9");
    EXPECT_TRUE(g_mapUndoList.isEmpty());
    map.log.clear();
    undo(panel);
    EXPECT_EQ(map.log, Log{});
}

using History = TerrainTest;

TEST_F(History, OneUndoTakesBackOneStrokeOfManyUpdates) {
    useTool(TOOL_SET_HEIGHT);
    panel.m_nHeight = 5;
    start(1, 1);
    stop();
    const Points first = changedHeights();
    panel.m_nHeight = 9;
    start(1, 1);
    update(2, 1);
    update(3, 1);
    stop();
    EXPECT_EQ(g_mapUndoList.getCount(), 16);
    undo(panel);
    EXPECT_EQ(changedHeights(), first);
    EXPECT_EQ(height(1, 1), 5);
    EXPECT_EQ(g_mapUndoList.getCount(), 4);
}

TEST_F(History, AStrokeLargerThanTheCapacityIsUndoneAsFarAsItIsKept) {
    constexpr int DIM = 340;
    constexpr int SIDE = DIM + 1;
    CMemoryMap large(DIM, nullptr);
    panel.m_pMap = &large;
    useTool(TOOL_FLATTEN);
    start(0, 0); // an earlier stroke, which drops out
    stop();
    selectAll(panel);
    useTool(TOOL_RAISE);
    start(0, 0);
    update(0, 0, -7);
    stop();
    EXPECT_EQ(g_mapUndoList.getCount(), CMapUndoList::CAPACITY);
    undo(panel);
    EXPECT_TRUE(g_mapUndoList.isEmpty());
    for (int x = 0; x < SIDE; ++x) {
        for (int z = 0; z < SIDE; ++z) { // recorded x by x: the first ones are lost
            const bool kept = x * SIDE + z >= SIDE * SIDE - CMapUndoList::CAPACITY;
            ASSERT_EQ(large.getPointHeight(x, z), kept ? 0 : 7) << x << ' ' << z;
        }
    }
    panel.m_pMap = &map;
}

TEST_F(History, BelongsToTheMapOfTheRememberedSettings) {
    g_savedSettings = {};
    g_savedSettings.strength = 4;
    g_savedSettings.height = 77;
    g_mapUndoList.push({});
    restoreSettings(panel); // nothing valid: reset, but the strength stays
    EXPECT_EQ(panel.m_nBrushSize, 2);
    EXPECT_EQ(panel.m_nTool, 0);
    EXPECT_EQ(panel.m_nHeight, 0);
    EXPECT_EQ(panel.m_nStrength, 4);
    EXPECT_TRUE(g_mapUndoList.isEmpty());

    g_mapUndoList.push({});
    panel.m_nTool = 9;
    panel.m_nBrushSize = 5;
    panel.m_nStrength = 7;
    panel.m_nHeight = 1000;
    saveSettings(panel);
    CTestPanel again;
    again.m_pMap = &map;
    restoreSettings(again);
    EXPECT_EQ(std::tie(again.m_nTool, again.m_nBrushSize, again.m_nStrength, again.m_nHeight),
              std::tie(panel.m_nTool, panel.m_nBrushSize, panel.m_nStrength, panel.m_nHeight));
    EXPECT_EQ(g_mapUndoList.getCount(), 1);

    CMemoryMap other(4, nullptr);
    again.m_pMap = &other;
    restoreSettings(again);
    EXPECT_EQ(again.m_nTool, 0);
    EXPECT_EQ(again.m_nStrength, 7);
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
                panel.m_nBrushSize = brush;
                panel.m_nStrength = brush % 2 == 0 ? HIGH : 10;
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
    EXPECT_TRUE(panel.m_selection.exists);
    useTool(TOOL_RAISE);
    start(0, 0);
    update(0, 0, LOW); // up as far as the engine goes
    EXPECT_EQ(changedHeights().size(), 17U * 17U);
    EXPECT_EQ(height(16, 16), CMemoryMap::MAX_HEIGHT);
    stop();
    EXPECT_EQ(g_mapUndoList.getCount(), 17 * 17);
    undo(panel);
    EXPECT_EQ(changedHeights(), Points{});
}
