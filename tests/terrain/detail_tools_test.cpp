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
}

TEST_F(DetailTools, EachUpdateReplacesTheOneBefore) {
    const struct {
        int tool, x, z, amount;
        Corners corners; ///< after an update at (9, 8) and then this one
    } cases[] = {
        {DETAIL_MOVE, 12, 3, 0, {{{11, 2, 3}, {12, 2, 3}, {11, 2, 4}}}},
        {DETAIL_ROTATE, 9, 8, 180, {{{9, 2, 9}, {8, 2, 9}, {9, 2, 8}}}},
        {DETAIL_ROTATE, 9, 8, 0, {{{8, 2, 8}, {9, 2, 8}, {8, 2, 9}}}},
        {DETAIL_SCALE, 9, 8, -25, {{{7.5F, 2, 7.5F}, {9.5F, 2, 7.5F}, {7.5F, 2, 9.5F}}}},
        {DETAIL_SCALE, 9, 8, 30, {{{8.45F, 2, 8.45F}, {8.55F, 2, 8.45F}, {8.45F, 2, 8.55F}}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "tool " << c.tool << " by " << c.amount);
        qxCMapDetailRecord& quad = hoveredQuad();
        useTool(c.tool);
        start(8, 8);
        EXPECT_EQ(quad.highlighted, 0);
        update(9, 8, 45); // picked up here
        update(c.x, c.z, c.amount);
        expectNear(corners(quad), c.corners);
        stop();
        m_map.removeDetail(&quad);
        m_panel.m_pCurrentDetail = nullptr;
    }
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

TEST_F(DetailTools, WithoutADetailOrATextureNothingHappens) {
    m_panel.m_pDetailTexture = nullptr;
    qxCMapDetailRecord& quad = hoveredQuad();
    const Corners before = corners(quad);
    for (int tool = 0; tool < DETAIL_TOOL_COUNT; ++tool) {
        const bool adds = tool == DETAIL_ADD_QUAD || tool == DETAIL_ADD_POINT;
        m_panel.m_pCurrentDetail = adds ? &quad : nullptr; // hovered, but not theirs
        useTool(tool);
        start(8, 8);
        update(10, 9, 20);
        update(12, 9, 20);
        stop();
        ASSERT_EQ(m_map.getDetails().size(), 1) << tool;
        EXPECT_EQ(corners(quad), before) << tool;
    }
}
