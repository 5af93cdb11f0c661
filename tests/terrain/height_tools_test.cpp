#include "terrain/support/test_panel.h"

#include "terrain/model/map_selection.h"

#include <array>
#include <limits>

using RaiseFootprint = TerrainTest;

TEST_F(RaiseFootprint, FollowsBrushEdgeAndCorner) {
    const struct {
        int brush, edge, corner;
        Points touched; ///< relative to the picked point, row by row
        int recorded;   ///< points
    } cases[] = {
        {BRUSH_POINT, 0, 2, {{1, 1}}, 4},
        {BRUSH_POINT, 0, 3, {{0, 1}}, 4},
        {BRUSH_POINT, 0, 4, {}, 0}, // what does not exist changes nothing, the history included
        {BRUSH_EDGE, 1, 0, {{1, 0}, {1, 1}}, 4},
        {BRUSH_EDGE, 5, 0, {{1, 0}, {0, 1}}, 4},
        {BRUSH_EDGE, -1, 0, {}, 0},
        {BRUSH_CELL, 0, 0, {{0, 0}, {1, 0}, {0, 1}, {1, 1}}, 4},
        {BRUSH_PLUS, 0, 0, {{1, 0}, {0, 1}, {1, 1}, {2, 1}, {1, 2}}, 9},
        {BRUSH_SIZE_COUNT, 0, 0, {}, 0},
        {-1, 0, 0, {}, 0},
    };
    useTool(TOOL_RAISE);
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message()
                     << "brush " << c.brush << " edge " << c.edge << " corner " << c.corner);
        m_panel.m_nBrushSize = c.brush;
        start(10, 10, c.edge, c.corner);
        update(3, 3, -9); // the pointer moves on, the work stays where it began
        update(3, 3, -7);
        stop();
        Points expected;
        for (const auto& [dx, dz] : c.touched) {
            expected.emplace_back(10 + dx, 10 + dz);
            EXPECT_EQ(height(10 + dx, 10 + dz), LEVEL + 7);
        }
        EXPECT_EQ(changedHeights(), expected);
        EXPECT_EQ(g_mapUndoList.getCount(), c.recorded);
        undo(m_panel);
        EXPECT_EQ(changedHeights(), Points{});
    }
    m_panel.m_nBrushSize = BRUSH_DISC; // 5 x 5 without its corners
    start(10, 10);
    update(10, 10, -1);
    EXPECT_EQ(changedHeights().size(), 21U);
    EXPECT_EQ(height(10, 10), LEVEL);
    EXPECT_EQ(height(14, 13), LEVEL + 1);
}

using HeightTools = TerrainTest;

TEST_F(HeightTools, ASettingChangedInMidStrokeReachesNoPointThatWasNotRecorded) {
    useTool(TOOL_RAISE);
    start(8, 8);
    m_panel.m_nBrushSize = 5;
    update(8, 8, -9);
    stop();
    EXPECT_EQ(changedHeights(), (Points{{9, 8}, {8, 9}, {9, 9}}));
    undo(m_panel);
    EXPECT_EQ(changedHeights(), Points{});

    m_panel.m_nStrength = 1;
    useTool(TOOL_MAGNET);
    start(8, 8);
    m_panel.m_nStrength = 10;
    update(8, 8, -10);
    stop();
    EXPECT_EQ(changedHeights(), (Points{{8, 8}, {9, 8}, {8, 9}, {9, 9}}));
    undo(m_panel);
    EXPECT_EQ(changedHeights(), Points{});

    useTool(TOOL_TINT); // its stroke takes no heights
    start(8, 8);
    useTool(TOOL_MAGNET);
    update(8, 8, -10);
    useTool(TOOL_RAISE);
    update(8, 8, -10);
    EXPECT_EQ(changedHeights(), Points{});
}

TEST_F(HeightTools, FlattenTakesTheTruncatedMean) {
    for (const auto& [x, z] : {std::pair{6, 5}, {5, 6}, {6, 6}}) {
        m_map.setPointHeight(x, z, 11, false);
    }
    m_map.setPointHeight(5, 5, 10, false);
    useTool(TOOL_FLATTEN);
    start(5, 5);
    for (const auto& [x, z] : {std::pair{5, 5}, {6, 5}, {5, 6}, {6, 6}}) {
        EXPECT_EQ(height(x, z), 10);
    }
}

TEST_F(HeightTools, SetHeightKnowsTheCellAndTheFourByFourBlock) {
    m_panel.m_nHeight = 300;
    useTool(TOOL_SET_HEIGHT);
    const std::array<std::size_t, 6> touched{0, 0, 4, 0, 16, 0};
    for (std::size_t brush = 0; brush < touched.size(); ++brush) {
        SCOPED_TRACE(brush);
        m_panel.m_nBrushSize = static_cast<int>(brush);
        start(5, 7);
        stop();
        EXPECT_EQ(changedHeights().size(), touched[brush]);
        EXPECT_EQ(static_cast<std::size_t>(g_mapUndoList.getCount()), touched[brush]);
        if (brush == 4) {
            EXPECT_EQ(changedHeights().front(), std::pair(4, 6));
            EXPECT_EQ(changedHeights().back(), std::pair(7, 9));
        }
        undo(m_panel);
    }
}

TEST_F(HeightTools, GetHeightAndGetGradientReadAndShow) {
    m_map.setPointHeight(3, 2, 1, false);
    m_map.setPointHeight(3, 3, 2, false);
    m_map.setPointHeight(2, 3, 3, false);
    useTool(TOOL_GET_HEIGHT);
    for (const auto& [corner, expected] : {std::pair{0, LEVEL}, {1, 1}, {2, 2}, {3, 3}, {4, 3}}) {
        start(2, 2, 0, corner);
        EXPECT_EQ(m_panel.m_nHeight, expected) << corner;
    }
    EXPECT_EQ(m_panel.shown, 5);
    useTool(TOOL_GET_GRADIENT);
    start(4, 3);
    EXPECT_GT(m_panel.m_fGradient, 0.0F);
    EXPECT_EQ(m_panel.m_fGradient, m_map.getGradient(4, 3));
    m_map.heightScale = std::numeric_limits<float>::quiet_NaN(); // a gradient that no field can show
    start(4, 3);
    EXPECT_EQ(m_panel.m_fGradient, 0.0F);
    EXPECT_EQ(m_panel.shown, 7);
    EXPECT_TRUE(g_mapUndoList.isEmpty());
}

TEST_F(HeightTools, SmoothMovesByTenthsTowardsTheMean) {
    for (const auto& [strength, expected] : {std::pair{10, 10}, {1, 82}, {5, 50}}) {
        for (const auto& [x, z] : pointsWhere([](int, int) { return true; })) {
            m_map.setPointHeight(x, z, x == 6 && z == 6 ? 90 : 0, false);
        }
        m_panel.m_nStrength = strength;
        useTool(TOOL_SMOOTH);
        start(6, 6);
        EXPECT_EQ(height(6, 6), expected);
        EXPECT_EQ(height(7, 7), strength); // its mean holds the spike too
        const int once = height(6, 6);
        update(6, 6); // the pointer rests
        EXPECT_EQ(height(6, 6), once);
        update(7, 6);
        update(6, 6);
        EXPECT_NE(height(6, 6), once);
        stop();
    }
}

TEST_F(HeightTools, MagnetRaisesABumpWithinItsRadius) {
    m_panel.m_nStrength = 1;
    useTool(TOOL_MAGNET);
    start(8, 8);
    EXPECT_EQ(g_mapUndoList.getCount(), 16);
    update(2, 2, -10);
    EXPECT_EQ(changedHeights(), (Points{{8, 8}, {9, 8}, {8, 9}, {9, 9}}));
    EXPECT_EQ(height(8, 8), LEVEL + 5);
    update(2, 2, 10);
    EXPECT_EQ(height(9, 9), LEVEL - 5);
    EXPECT_EQ(g_mapUndoList.getCount(), 16);

    m_panel.m_nStrength = 10;
    start(8, 8);
    update(8, 8, -100);
    EXPECT_EQ(height(8, 8), LEVEL - 5 + 98); // (1 + cos(pi * 0.7071 / 10.5)) / 2 = 0.9889
}

TEST_F(HeightTools, RoughenStaysWithinItsStrength) {
    m_panel.m_nStrength = 1; // only the very ends of the range reach a whole unit
    useTool(TOOL_ROUGHEN);
    start(5, 5);
    EXPECT_EQ(changedHeights(), Points{});
    m_panel.m_nStrength = 10;
    bool moved = false;
    for (int i = 0; i < 40; ++i) {
        const int before = height(5, 5);
        update(5, 5);
        EXPECT_LE(std::abs(height(5, 5) - before), 10);
        moved = moved || height(5, 5) != before;
    }
    EXPECT_TRUE(moved);
    EXPECT_LE(changedHeights().size(), 4U);
    undo(m_panel);
    EXPECT_EQ(changedHeights(), Points{});
}
