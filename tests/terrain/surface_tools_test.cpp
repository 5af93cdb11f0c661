#include "terrain/support/logging_map.h"
#include "terrain/support/test_panel.h"

using SurfaceTools = TerrainTest;

TEST_F(SurfaceTools, TintMixesByHundredthsOnEveryUpdate) {
    const qxCColour black(0, 0, 0, 255);
    const qxCColour white(255, 255, 255, 255);
    m_map.setPointColour(0, 5, 5, black);
    m_panel.tint = {255, 255, 255, 0}; // the swatch's alpha counts for nothing
    m_panel.m_nBrushSize = 0;
    useTool(TOOL_TINT);
    start(5, 5);
    const qxCColour once = interpolate(black, white, 0.1F);
    EXPECT_EQ(m_map.getPointColour(0, 5, 5), once);
    update(5, 5);
    EXPECT_EQ(m_map.getPointColour(0, 5, 5), interpolate(once, white, 0.1F));
    stop();
    EXPECT_EQ(g_mapUndoList.getCount(), 2); // the corner alone, each time
    undo(m_panel);
    EXPECT_EQ(m_map.getPointColour(0, 5, 5), black);
}

TEST_F(SurfaceTools, GroundUnderStandingWaterKeepsItsColour) {
    m_map.waterLevel = 50.9F;
    m_map.heightScale = 0.5F; // water stands at 101
    m_panel.tint = {0, 0, 0, 255};
    const struct {
        int height;
        bool water;
        bool tinted;
    } cases[] = {{101, true, false}, {102, true, true}, {101, false, true}, {0, true, false}};
    useTool(TOOL_TINT);
    m_panel.m_nBrushSize = 0;
    for (int x = 0; x < 4; ++x) {
        m_map.setPointHeight(x, 3, cases[x].height, false);
        m_map.setPointWater(x, 3, cases[x].water);
        start(x, 3);
        stop();
        EXPECT_EQ(m_map.getPointColour(0, x, 3) != qxCColour(255, 255, 255, 255), cases[x].tinted) << x;
    }
}

namespace {

/// A panel over the logging map, and what a stroke at (2, 3) made of it.
std::vector<std::string> logOf(int tool, int brush, int strength) {
    g_mapUndoList.clear();
    CLoggingMap map;
    CTestPanel panel;
    panel.m_pMap = &map;
    panel.m_nTool = tool;
    panel.m_nBrushSize = brush;
    panel.m_nStrength = strength;
    panel.m_nHeight = 77;
    strokeStart(panel, 2, 3, 4, 1);
    std::erase_if(map.log, [](const std::string& line) { return line.starts_with("read"); });
    g_mapUndoList.clear();
    return map.log;
}

} // namespace

TEST(PaintOrder, GoesRowByRowWithHalfWeightOnTheRim) {
    using Log = std::vector<std::string>;
    EXPECT_EQ(logOf(TOOL_PAINT, 0, 10), (Log{"paint 3 3 1"}));
    EXPECT_EQ(logOf(TOOL_PAINT, 1, 1), (Log{"paint 2 3 0.1", "paint 3 4 0.1"}));
    EXPECT_EQ(logOf(TOOL_PAINT, 3, 10),
              (Log{"paint 3 3 0.5", "paint 2 4 0.5", "paint 3 4 1", "paint 4 4 0.5", "paint 3 5 0.5"}));
    EXPECT_EQ(logOf(TOOL_PAINT, 4, 10),
              (Log{"paint 2 3 0.5", "paint 3 3 1", "paint 4 3 0.5", "paint 2 4 1", "paint 3 4 1",
                   "paint 4 4 1", "paint 2 5 0.5", "paint 3 5 1", "paint 4 5 0.5"}));
    EXPECT_EQ(logOf(TOOL_PAINT, 5, 5).size(), 21U);
    EXPECT_EQ(logOf(TOOL_PAINT, 5, 5).front(), "paint 3 3 0.5");
}

TEST(EngineCalls, TellHandWorkFromFiltersAndLeaveTheRestAlone) {
    using Log = std::vector<std::string>;
    EXPECT_EQ(logOf(TOOL_SMOOTH, 5, 10), (Log{"height 2 3 40 indirect", "height 3 3 40 indirect",
                                              "height 2 4 40 indirect", "height 3 4 40 indirect"}));
    EXPECT_EQ(logOf(TOOL_SET_HEIGHT, 2, 10), (Log{"height 2 3 77 direct", "height 3 3 77 direct",
                                                  "height 2 4 77 direct", "height 3 4 77 direct"}));
    EXPECT_EQ(logOf(TOOL_FLATTEN, 0, 1).back(), "height 3 4 40 direct");
    EXPECT_EQ(logOf(TOOL_MAGNET, 0, 1).front(), "height 1 2 40 direct");
    EXPECT_EQ(logOf(TOOL_RAISE, 0, 1), (Log{"height 3 3 40 direct"}));
    EXPECT_EQ(logOf(TOOL_FLOOD, 5, 10), (Log{"add water 2 3"}));
    EXPECT_EQ(logOf(TOOL_DRAIN, 5, 10), (Log{"remove water 2 3"}));
    EXPECT_EQ(logOf(13, 5, 10), Log{});
}
