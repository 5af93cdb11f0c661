#include "engine/memory/memory_map.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

namespace {

constexpr int GRID = 8;
constexpr qxCColour RED(255, 0, 0, 255);

class MapPoints : public testing::Test {
protected:
    CMemoryMap m_map{GRID, nullptr};
};

// Every attribute of every point, to tell whether anything at all was written.
struct Snapshot {
    std::vector<int> heights, blends, water;
    std::vector<qxCColour> colours, markers;

    explicit Snapshot(const CMemoryMap& map)
        : heights(map.getHeights().begin(), map.getHeights().end())
        , blends(map.getBlends().begin(), map.getBlends().end())
        , water(map.getWaterFlags().begin(), map.getWaterFlags().end())
        , colours(map.getColours().begin(), map.getColours().end())
        , markers(map.getMarkers().begin(), map.getMarkers().end()) {}
    bool operator==(const Snapshot&) const = default;
};

TEST_F(MapPoints, WritesOutsideTheGridAreIgnoredAndReadsGiveTheNearestEdgePoint) {
    for (int z = 0; z <= GRID; ++z) {
        for (int x = 0; x <= GRID; ++x) {
            m_map.setPointHeight(x, z, 100 * z + x, true);
            m_map.setPointColour(0, x, z, qxCColour(x, z, 7, 9));
            m_map.setPointBlend(1, x, z, 1000 * z + x);
            m_map.setPointWater(x, z, true);
        }
    }
    m_map.addMultiTexture();
    const Snapshot before(m_map);
    const struct {
        int x, z, nearestX, nearestZ;
    } outside[] = {{-1, 3, 0, 3},          {GRID + 1, 3, GRID, 3},      {3, -1, 3, 0},
                   {3, GRID + 1, 3, GRID}, {INT_MIN, INT_MAX, 0, GRID}, {INT_MAX, INT_MIN, GRID, 0}};
    for (const auto& c : outside) {
        SCOPED_TRACE(testing::Message() << c.x << ", " << c.z);
        m_map.setPointHeight(c.x, c.z, 5000, true);
        m_map.setPointColour(0, c.x, c.z, RED);
        m_map.setPointBlend(1, c.x, c.z, 4321);
        m_map.setMarkerPixel(qxMapMarkerStroke, c.x, c.z, RED);
        m_map.setPointWater(c.x, c.z, false);
        m_map.paintMultiTexture(c.x, c.z, 1.0F);
        m_map.addWater(c.x, c.z);
        m_map.removeWater(c.x, c.z);
        EXPECT_EQ(Snapshot(m_map), before);

        const int height = 100 * c.nearestZ + c.nearestX;
        const qxCColour colour(c.nearestX, c.nearestZ, 7, 9);
        EXPECT_EQ(m_map.getPointHeight(c.x, c.z), height);
        EXPECT_EQ(m_map.getPointHeightQ(c.x, c.z), height);
        EXPECT_EQ(m_map.getPointColour(0, c.x, c.z), colour);
        EXPECT_EQ(m_map.getPointColourQ(0, c.x, c.z), colour);
        EXPECT_EQ(m_map.getPointBlendQ(1, c.x, c.z), 1000 * c.nearestZ + c.nearestX);
        EXPECT_FALSE(m_map.getPointWater(c.x, c.z));
        EXPECT_TRUE(std::isfinite(m_map.getGradient(c.x, c.z)));
    }
}

TEST_F(MapPoints, GradientLooksAtBothSidesOfAPoint) {
    m_map.heightScale = 0.5F;
    m_map.setPointHeight(4, 4, 2, true);
    EXPECT_FLOAT_EQ(m_map.getGradient(4, 4), 0.0F);
    EXPECT_NEAR(m_map.getGradient(3, 4), std::atan(0.5F) * 180.0F / std::acos(-1.0F), 1e-3F);
    EXPECT_FLOAT_EQ(m_map.getGradient(4, 3), m_map.getGradient(3, 4));
    EXPECT_FLOAT_EQ(m_map.getGradient(3, 3), 0.0F);
    m_map.setPointHeight(6, 4, 2, true);
    m_map.setPointHeight(4, 6, 2, true);
    EXPECT_FLOAT_EQ(m_map.getGradient(5, 4) + m_map.getGradient(4, 5), 0.0F) << "level across";
    m_map.setPointHeight(0, 0, 2, true);
    EXPECT_NEAR(m_map.getGradient(1, 0), std::atan(0.5F) * 180.0F / std::acos(-1.0F), 1e-3F);
    EXPECT_NEAR(m_map.getGradient(0, 0), std::atan(std::sqrt(2.0F)) * 180.0F / std::acos(-1.0F), 1e-3F);
}

TEST_F(MapPoints, DirtyRectanglesCoverJustWhatChangedAndAreTakenOnce) {
    m_map.setPointHeight(2, 5, 10, true);
    m_map.setPointHeight(6, 1, 10, false);
    m_map.setPointHeight(-1, -1, 10, true);
    m_map.setPointColour(0, 3, 3, RED);
    m_map.setPointWater(4, 2, true);
    m_map.setPointBlend(1, 1, 2, 5);
    EXPECT_EQ(m_map.takeDirtyHeights(), (GridRect{2, 1, 6, 5}));
    EXPECT_EQ(m_map.takeDirtySurface(), (GridRect{1, 2, 4, 3}));
    EXPECT_TRUE(m_map.takeDirtyHeights().isEmpty());
    EXPECT_TRUE(m_map.takeDirtySurface().isEmpty());
    EXPECT_TRUE(m_map.takeDirtyMarkers().isEmpty());
    EXPECT_EQ(m_map.getChangeCount(MapChange::HEIGHTS), 2U);
    EXPECT_EQ(m_map.getChangeCount(MapChange::SURFACE), 3U);

    m_map.setPointHeight(2, 5, 10, true);
    m_map.setPointColour(0, 3, 3, RED);
    EXPECT_TRUE(m_map.takeDirtyHeights().isEmpty()) << "the same value again is no change";
    EXPECT_TRUE(m_map.takeDirtySurface().isEmpty());
    EXPECT_EQ(m_map.getChangeCount(MapChange::HEIGHTS), 2U);
}

TEST_F(MapPoints, MarkerChangesAreHeldBackWhileTheLayerIsLocked) {
    m_map.unlockMarkerLayer();
    m_map.lockMarkerLayer();
    m_map.lockMarkerLayer();
    m_map.setMarkerPixel(qxMapMarkerStroke, 1, 2, RED);
    m_map.unlockMarkerLayer();
    EXPECT_TRUE(m_map.takeDirtyMarkers().isEmpty());
    m_map.unlockMarkerLayer();
    EXPECT_EQ(m_map.takeDirtyMarkers(), (GridRect{1, 2, 1, 2}));
    EXPECT_EQ(m_map.getMarkers()[2 * (GRID + 1) + 1], RED);
}

} // namespace
