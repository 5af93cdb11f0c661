#include "engine/memory/memory_map.h"
#include "engine/qx_random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace {

constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();

// The recipe of a definition's preview, drawn here step by step for one texel.
struct Preview {
    float blend;
    qxCColour tint;
};

Preview previewAt(const qxCMapMultiTexture& d, int column, int row) {
    qxCRandom tints;
    qxCRandom blends;
    tints.setSeed(123);
    blends.setSeed(345);
    qxCColour n[9][9];
    float b[9][9];
    for (int i = 0; i < 9; ++i) {
        for (int j = 0; j < 9; ++j) {
            n[i][j] = interpolate(d.tint1, d.tint2, tints.get(1.0F));
            b[i][j] = std::clamp(d.blend + blends.get(-d.variation, d.variation), 0.0F, 1.0F);
        }
    }
    const int i = column / 32;
    const int j = row / 32;
    const float w = static_cast<float>(column % 32) / 32.0F;
    const float u = static_cast<float>(row % 32) / 32.0F;
    const float left = b[i][j] + u * (b[i][j + 1] - b[i][j]);
    const float right = b[i + 1][j] + u * (b[i + 1][j + 1] - b[i + 1][j]);
    return {left + w * (right - left), interpolate(interpolate(n[i][j], n[i][j + 1], u),
                                                   interpolate(n[i + 1][j], n[i + 1][j + 1], u), w)};
}

qxCMapMultiTexture& addMottled(CMemoryMap& map) {
    qxCMapMultiTexture& definition = *map.addMultiTexture();
    definition.tint1 = qxCColour(255, 120, 0, 255);
    definition.tint2 = qxCColour(20, 250, 90, 255);
    definition.blend = 0.6F;
    definition.variation = 0.8F;
    return definition;
}

TEST(Painting, FullWeightPutsThePreviewOnTheGround) {
    struct {
        int gridDim, tiling, x, z, column, row;
    } const cases[] = {
        {256, 1, 0, 0, 0, 0},     {256, 1, 37, 200, 37, 200}, {256, 1, 255, 3, 255, 3},
        {256, 1, 256, 256, 0, 0}, {256, 4, 70, 65, 24, 4},    {100, 3, 33, 99, 253, 248},
        {256, 33, 3, 9, 96, 32},  {256, 256, 1, 7, 32, 224},  {8, 1, 1, 2, 32, 64},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message()
                     << c.gridDim << " cells, tiling " << c.tiling << ", " << c.x << ", " << c.z);
        CMemoryMap map(c.gridDim, nullptr);
        const qxCMapMultiTexture& definition = addMottled(map);
        map.setTextureTiling(c.tiling);
        map.paintMultiTexture(c.x, c.z, 1.0F);
        const Preview expected = previewAt(definition, c.column, c.row);
        EXPECT_EQ(map.getPointColour(0, c.x, c.z), expected.tint);
        EXPECT_NEAR(map.getPointBlendQ(1, c.x, c.z), expected.blend * 65535.0F, 0.51F);
    }
}

TEST(Painting, AChangeOfAnyValueOfTheDefinitionIsPainted) {
    const std::function<void(qxCMapMultiTexture&)> changes[] = {
        [](auto& d) { d.tint1 = qxCColour(1, 2, 3, 255); },
        [](auto& d) { d.tint2 = qxCColour(4, 5, 6, 255); },
        [](auto& d) { d.blend = 0.1F; },
        [](auto& d) { d.variation = 0.1F; },
    };
    CMemoryMap map(256, nullptr);
    map.setTextureTiling(1);
    qxCMapMultiTexture& definition = addMottled(map);
    map.paintMultiTexture(40, 50, 1.0F);
    for (const auto& change : changes) {
        change(definition);
        map.paintMultiTexture(40, 50, 1.0F);
        const Preview expected = previewAt(definition, 40, 50);
        EXPECT_EQ(map.getPointColour(0, 40, 50), expected.tint);
        EXPECT_NEAR(map.getPointBlendQ(1, 40, 50), expected.blend * 65535.0F, 0.51F);
    }
}

TEST(Painting, WeightMovesThePointTowardsTheDefinitionAndArrives) {
    CMemoryMap map(16, nullptr);
    qxCMapMultiTexture& definition = *map.addMultiTexture();
    definition.tint1 = definition.tint2 = qxCColour(55, 255, 155, 255);
    definition.blend = 1.0F;
    map.setPointBlend(1, 5, 5, 15535);
    map.paintMultiTexture(5, 5, 0.5F);
    EXPECT_EQ(map.getPointBlendQ(1, 5, 5), 40535);
    EXPECT_EQ(map.getPointColour(0, 5, 5), qxCColour(155, 255, 205, 255));
    for (int i = 0; i < 400; ++i) {
        map.paintMultiTexture(5, 5, 0.05F);
    }
    EXPECT_EQ(map.getPointBlendQ(1, 5, 5), 65535);
    EXPECT_EQ(map.getPointColour(0, 5, 5), qxCColour(55, 255, 155, 255));
    definition.blend = 0.0F;
    for (int i = 0; i < 400; ++i) {
        map.paintMultiTexture(5, 5, 0.05F);
    }
    EXPECT_EQ(map.getPointBlendQ(1, 5, 5), 0);
}

TEST(Painting, BadWeightsAndValuesStayInBounds) {
    CMemoryMap map(16, nullptr);
    qxCMapMultiTexture& definition = *map.addMultiTexture();
    definition.blend = 0.5F;
    for (const float weight : {0.0F, -1.0F, NOT_A_NUMBER}) {
        map.paintMultiTexture(2, 2, weight);
    }
    EXPECT_EQ(map.getChangeCount(MapChange::SURFACE), 0U);
    map.paintMultiTexture(2, 2, 9.0F);
    EXPECT_EQ(map.getPointBlendQ(1, 2, 2), 32768);
    definition.blend = 7.0F;
    map.paintMultiTexture(2, 2, 1.0F);
    EXPECT_EQ(map.getPointBlendQ(1, 2, 2), 65535);
    definition.blend = NOT_A_NUMBER;
    map.paintMultiTexture(2, 2, 1.0F);
    EXPECT_EQ(map.getPointBlendQ(1, 2, 2), 0);
}

TEST(Painting, WithoutADefinitionNothingIsPainted) {
    CMemoryMap map(16, nullptr);
    map.paintMultiTexture(2, 2, 1.0F);
    addMottled(map);
    map.removeMultiTexture(0);
    map.paintMultiTexture(2, 2, 1.0F);
    EXPECT_EQ(map.getChangeCount(MapChange::SURFACE), 0U);
}

// A map of 7 x 7 points written as one text per row: digits are heights, and in the water texts '~' is water.
using Art = std::vector<std::string>;

class Water : public testing::Test {
protected:
    void dig(const Art& heights) {
        for (int z = 0; z < 7; ++z) {
            for (int x = 0; x < 7; ++x) {
                m_map.setPointHeight(x, z, at(heights, x, z) - '0', true);
            }
        }
    }
    Art water() const {
        Art art(7, std::string(7, '.'));
        for (int z = 0; z < 7; ++z) {
            for (int x = 0; x < 7; ++x) {
                if (m_map.getPointWater(x, z)) {
                    art[static_cast<std::size_t>(z)][static_cast<std::size_t>(x)] = '~';
                }
            }
        }
        return art;
    }
    static char at(const Art& art, int x, int z) {
        return art[static_cast<std::size_t>(z)][static_cast<std::size_t>(x)];
    }

    CMemoryMap m_map{6, nullptr};
};

const Art DRY(7, ".......");
const Art HORSESHOE = {"9999999", //
                       "9119119", //
                       "9199919", //
                       "9199919", //
                       "9211129", //
                       "9999999", //
                       "1999991"};
const Art HORSESHOE_WATER = {".......", //
                             ".~~.~~.", //
                             ".~...~.", //
                             ".~...~.", //
                             ".~~~~~.", //
                             ".......", //
                             "......."};

TEST_F(Water, FloodFillsTheJoinedLowGroundRoundCorners) {
    dig(HORSESHOE);
    m_map.waterLevel = 2.0F;
    m_map.addWater(5, 1);
    EXPECT_EQ(water(), HORSESHOE_WATER);
    EXPECT_EQ(m_map.takeDirtySurface(), (GridRect{1, 1, 5, 4}));
    EXPECT_EQ(m_map.getChangeCount(MapChange::SURFACE), 13U);
    m_map.addWater(5, 1);
    EXPECT_TRUE(m_map.takeDirtySurface().isEmpty());
}

TEST_F(Water, FloodStopsAboveTheWaterHeight) {
    dig(HORSESHOE);
    m_map.waterLevel = 1.9F;
    m_map.addWater(2, 1);
    EXPECT_EQ(water(), (Art{".......", ".~~....", ".~.....", ".~.....", ".......", ".......", "......."}));
    m_map.addWater(0, 0);
    m_map.addWater(1, 4);
    EXPECT_EQ(m_map.getChangeCount(MapChange::SURFACE), 4U);
}

TEST_F(Water, FloodReachesGroundThatWasDugBehindStandingWater) {
    dig(HORSESHOE);
    m_map.waterLevel = 2.0F;
    m_map.addWater(1, 1);
    m_map.setPointHeight(3, 3, 0, true);
    m_map.setPointHeight(3, 2, 0, true);
    m_map.addWater(1, 1);
    EXPECT_TRUE(m_map.getPointWater(3, 2));
}

TEST_F(Water, DrainEmptiesTheJoinedWaterWhateverTheGround) {
    dig(HORSESHOE);
    m_map.waterLevel = 2.0F;
    m_map.addWater(1, 1);
    m_map.addWater(6, 6);
    m_map.setPointHeight(1, 2, 9, true);
    m_map.removeWater(3, 3);
    EXPECT_NE(water(), DRY);
    m_map.removeWater(5, 1);
    EXPECT_EQ(water(), (Art{".......", ".......", ".......", ".......", ".......", ".......", "......~"}));
}

TEST_F(Water, WaterHeightIsTheLevelInHeightUnitsTruncated) {
    struct {
        float level, scale;
        int height;
    } const cases[] = {{10.0F, 3.0F, 3},  {9.0F, 3.0F, 3},       {0.5F, 1.0F, 0},
                       {-0.5F, 1.0F, 0},  {-2.0F, 1.0F, -1},     {1.0F, 0.0F, -1},
                       {1.0F, -1.0F, -1}, {1e30F, 1e-5F, 65535}, {NOT_A_NUMBER, 1.0F, -1}};
    for (const auto& c : cases) {
        m_map.waterLevel = c.level;
        m_map.heightScale = c.scale;
        EXPECT_EQ(m_map.getWaterHeight(), c.height) << c.level << " / " << c.scale;
    }
}

TEST(WaterArea, ALargeMapFillsAndDrainsWhole) {
    CMemoryMap map(1024, nullptr);
    // A wall that leaves one winding channel: the longest way the water can take.
    for (int z = 1; z < 1024; z += 2) {
        for (int x = 0; x <= 1024; ++x) {
            map.setPointHeight(x, z, x == (z % 4 == 1 ? 1024 : 0) ? 0 : 9, true);
        }
    }
    map.addWater(0, 0);
    constexpr std::uint64_t CHANNEL = 513ULL * 1025 + 512;
    EXPECT_EQ(map.getChangeCount(MapChange::SURFACE), CHANNEL);
    map.removeWater(512, 1024);
    EXPECT_EQ(map.getChangeCount(MapChange::SURFACE), 2 * CHANNEL);
    EXPECT_TRUE(std::ranges::all_of(map.getWaterFlags(), [](std::uint8_t flag) { return flag == 0; }));
}

} // namespace
