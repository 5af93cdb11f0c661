#include "terrain/support/test_panel.h"

#include "engine/qx_texture.h"
#include "terrain/edit_cursor.h"

#include <array>

namespace {

using Corners = std::array<qxCVector3d, 3>;

class DetailTools : public TerrainTest {
protected:
    DetailTools() {
        m_panel.isDetails = true;
        m_panel.m_pDetailTexture = &m_texture;
    }

    static Corners corners(const qxCMapDetailRecord& detail) {
        return {detail.point0, detail.point1, detail.point2};
    }
    static void expectNear(const Corners& actual, const Corners& expected) {
        for (std::size_t i = 0; i < actual.size(); ++i) {
            EXPECT_NEAR(actual[i].x, expected[i].x, 1e-4);
            EXPECT_NEAR(actual[i].y, expected[i].y, 1e-4);
            EXPECT_NEAR(actual[i].z, expected[i].z, 1e-4);
        }
    }
    /// A quad on the cell (8, 8), two units up, under the pointer.
    qxCMapDetailRecord& hoveredQuad() {
        qxCMapDetailRecord* const quad =
            m_map.addDetail(qxDetailTypeQuad, &m_texture, {8, 2, 8}, {9, 2, 8}, {8, 2, 9}, 0.75F);
        useTool(DETAIL_MOVE);
        updateCursor(m_panel, 8, 8, 0, 0, CursorUse::HOVER);
        EXPECT_EQ(m_panel.m_pCurrentDetail, quad);
        return *quad;
    }
    /// The whole of a stroke at the quad's cell.
    void strokeAt(int amount) {
        start(8, 8);
        update(8, 8, amount);
        stop();
    }

    qxCTexture m_texture;
};

} // namespace

TEST_F(DetailTools, AddQuadPlacesACellAndDragsIt) {
    useTool(DETAIL_ADD_QUAD);
    start(3, 4);
    ASSERT_EQ(m_map.getDetails().size(), 1);
    const qxCMapDetailRecord& quad = m_map.getDetails()[0];
    EXPECT_EQ(corners(quad), (Corners{{{3, 0, 4}, {4, 0, 4}, {3, 0, 5}}}));
    EXPECT_EQ(quad.texture, &m_texture);
    EXPECT_EQ(quad.scalar, 1.0F);
    EXPECT_EQ(quad.highlighted, 0);
    update(10, 2);
    update(5, 9);
    EXPECT_EQ(corners(quad), (Corners{{{5, 0, 9}, {6, 0, 9}, {5, 0, 10}}}));
    stop();
    m_panel.m_pDetailTexture = nullptr;
    start(1, 1);
    EXPECT_EQ(m_map.getDetails().size(), 1);
    EXPECT_TRUE(m_panel.m_stroke.firstUpdate); // not even an update was run
}

TEST_F(DetailTools, AddPointStandsInTheMiddleOfTheCell) {
    useTool(DETAIL_ADD_POINT);
    start(3, 4);
    ASSERT_EQ(m_map.getDetails().size(), 1);
    const qxCMapDetailRecord& point = m_map.getDetails()[0];
    EXPECT_EQ(point.type, qxDetailTypePoint);
    EXPECT_EQ((point.point1 + point.point2) * 0.5F, qxCVector3d(3.5F, 0.0F, 4.5F));
}

TEST_F(DetailTools, MoveKeepsTheHeightAndTheOffsetOfThePointer) {
    qxCMapDetailRecord& quad = hoveredQuad();
    useTool(DETAIL_MOVE);
    start(8, 8);
    EXPECT_EQ(quad.highlighted, 0);
    EXPECT_TRUE(m_panel.m_stroke.firstUpdate);
    update(9, 8); // picked up here
    update(12, 3);
    EXPECT_EQ(corners(quad), (Corners{{{11, 2, 3}, {12, 2, 3}, {11, 2, 4}}}));
}

TEST_F(DetailTools, RotateTurnsAboutTheMiddle) {
    qxCMapDetailRecord& quad = hoveredQuad();
    const Corners before = corners(quad);
    useTool(DETAIL_ROTATE);
    strokeAt(0);
    EXPECT_EQ(corners(quad), before);
    m_panel.m_pCurrentDetail = &quad;
    start(8, 8);
    update(8, 8, 45);
    update(8, 8, 180); // replaces the turn before
    expectNear(corners(quad), {{{9, 2, 9}, {8, 2, 9}, {9, 2, 8}}});
}

TEST_F(DetailTools, ScaleWorksInHundredthsAndStopsAtATenth) {
    qxCMapDetailRecord& quad = hoveredQuad();
    useTool(DETAIL_SCALE);
    start(8, 8);
    update(8, 8, -25);
    expectNear(corners(quad), {{{7.5F, 2, 7.5F}, {9.5F, 2, 7.5F}, {7.5F, 2, 9.5F}}});
    update(8, 8, 30);
    expectNear(corners(quad), {{{8.45F, 2, 8.45F}, {8.55F, 2, 8.45F}, {8.45F, 2, 8.55F}}});
}

TEST_F(DetailTools, FlipMirrorsInPlaceOnceAStroke) {
    qxCMapDetailRecord& quad = hoveredQuad();
    const Corners before = corners(quad);
    useTool(DETAIL_FLIP);
    strokeAt(0);
    EXPECT_EQ(corners(quad), (Corners{{{9, 2, 8}, {8, 2, 8}, {9, 2, 9}}}));
    m_panel.m_pCurrentDetail = &quad;
    strokeAt(0);
    EXPECT_EQ(corners(quad), before);
}

TEST_F(DetailTools, DuplicateCopiesEveryFieldAndDragsTheCopy) {
    qxCMapDetailRecord& original = hoveredQuad();
    original.type = qxDetailTypePoint;
    const Corners before = corners(original);
    useTool(DETAIL_DUPLICATE);
    start(8, 8);
    update(10, 8);
    ASSERT_EQ(m_map.getDetails().size(), 2);
    const qxCMapDetailRecord& copy = m_map.getDetails()[1];
    EXPECT_EQ(copy.type, qxDetailTypePoint);
    EXPECT_EQ(copy.texture, &m_texture);
    EXPECT_EQ(copy.scalar, 0.75F);
    EXPECT_EQ(corners(copy), (Corners{{{10, 2, 8}, {11, 2, 8}, {10, 2, 9}}}));
    EXPECT_EQ(corners(original), before);
    EXPECT_EQ(original.highlighted, 0);
}

TEST_F(DetailTools, DeleteRemovesTheDetailAndForgetsItsDrag) {
    qxCMapDetailRecord& quad = hoveredQuad();
    useTool(DETAIL_MOVE);
    start(8, 8);
    update(8, 8);
    stop();
    m_panel.m_pCurrentDetail = &quad;
    useTool(DETAIL_DELETE);
    start(8, 8);
    EXPECT_EQ(m_map.getDetails().size(), 0);
    EXPECT_EQ(m_panel.m_pCurrentDetail, nullptr);
    useTool(DETAIL_MOVE);
    update(9, 9); // in the same stroke: there is nothing left to move
    stop();
}

TEST_F(DetailTools, WithoutACurrentDetailNothingHappens) {
    hoveredQuad();
    const Corners before = corners(m_map.getDetails()[0]);
    for (int tool = 1; tool < DETAIL_TOOL_COUNT; ++tool) {
        if (tool == DETAIL_ADD_POINT) {
            continue;
        }
        m_panel.m_pCurrentDetail = nullptr;
        useTool(tool);
        start(1, 1);
        update(2, 2, 20);
        stop();
        ASSERT_EQ(m_map.getDetails().size(), 1) << tool;
        EXPECT_EQ(corners(m_map.getDetails()[0]), before) << tool;
    }
}
