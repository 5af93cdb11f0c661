#include "terrain/support/test_panel.h"

#include "terrain/model/map_selection.h"

#include <limits>

using History = TerrainTest;

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

TEST_F(History, ASelectionOfTheWholePlaneIsTheWholeMap) {
    constexpr int LOW = std::numeric_limits<int>::min();
    constexpr int HIGH = std::numeric_limits<int>::max();
    select(HIGH, LOW, LOW, HIGH);
    EXPECT_TRUE(m_panel.m_selection.exists);
    useTool(TOOL_RAISE);
    start(0, 0);
    update(0, 0, LOW); // up as far as the engine goes
    EXPECT_EQ(changedHeights(), 17 * 17);
    EXPECT_EQ(m_map.getPointHeight(16, 16), CMemoryMap::MAX_HEIGHT);
    stop();
    undo(m_panel);
    EXPECT_EQ(changedHeights(), 0);
}

TEST_F(History, AGradientThatNoFieldCanShowIsReadAsNone) {
    m_map.setPointHeight(3, 3, LEVEL + 9, false);
    useTool(TOOL_GET_GRADIENT);
    start(4, 3);
    EXPECT_GT(m_panel.m_fGradient, 0.0F);
    m_map.heightScale = std::numeric_limits<float>::quiet_NaN();
    start(4, 3);
    EXPECT_EQ(m_panel.m_fGradient, 0.0F);
    EXPECT_TRUE(g_mapUndoList.isEmpty());
}
