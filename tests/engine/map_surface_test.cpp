#include "engine/memory/memory_map.h"
#include "support/surface_recipe.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

namespace {

constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();

qxCMapMultiTexture& addMottled(CMemoryMap& map) {
    qxCMapMultiTexture& definition = *map.addMultiTexture();
    definition.tint1 = qxCColour(255, 120, 0, 255);
    definition.tint2 = qxCColour(20, 250, 90, 255);
    definition.blend = 0.6F;
    definition.variation = 0.8F;
    return definition;
}

/// Painted with its whole weight, a point has what the pattern has at this texel.
void expectPainted(CMemoryMap& map, const qxCMapMultiTexture& d, int x, int z, int column, int row) {
    SCOPED_TRACE(testing::Message() << map.getGridDim() << " cells, tiling " << map.getTextureTiling() << ", "
                                    << x << ", " << z);
    map.paintMultiTexture(x, z, 1.0F);
    const CSurfaceRecipe recipe(d.tint1, d.tint2, d.blend, d.variation);
    EXPECT_EQ(map.getPointColour(0, x, z), recipe.tintAt(column, row));
    EXPECT_NEAR(map.getPointBlendQ(1, x, z), recipe.blendAt(column, row) * 65535.0F, 0.51F);
}

TEST(Painting, FullWeightPutsThePatternOnTheGround) {
    const struct {
        int gridDim, tiling, x, z, column, row;
    } cases[] = {
        {256, 1, 37, 200, 37, 200}, {256, 1, 256, 256, 0, 0}, {256, 4, 70, 65, 24, 4},
        {100, 3, 33, 99, 253, 248}, {256, 33, 3, 9, 96, 32},  {256, 256, 1, 7, 32, 224},
    };
    for (const auto& c : cases) {
        CMemoryMap map(c.gridDim, nullptr);
        const qxCMapMultiTexture& definition = addMottled(map);
        map.setTextureTiling(c.tiling);
        expectPainted(map, definition, c.x, c.z, c.column, c.row);
    }
    CMemoryMap map(256, nullptr); // a change of any value of the definition is seen
    map.setTextureTiling(1);
    qxCMapMultiTexture& definition = addMottled(map);
    expectPainted(map, definition, 40, 50, 40, 50);
    definition.tint1 = qxCColour(1, 2, 3, 255);
    expectPainted(map, definition, 40, 50, 40, 50);
    definition.tint2 = qxCColour(4, 5, 6, 255);
    expectPainted(map, definition, 40, 50, 40, 50);
    definition.blend = 0.1F;
    expectPainted(map, definition, 40, 50, 40, 50);
    definition.variation = 0.1F;
    expectPainted(map, definition, 40, 50, 40, 50);
}

TEST(Painting, SmallWeightsArriveAtEitherEnd) {
    CMemoryMap map(16, nullptr);
    qxCMapMultiTexture& definition = *map.addMultiTexture();
    for (const float blend : {1.0F, 0.0F}) {
        definition.blend = blend;
        for (int i = 0; i < 400; ++i) {
            map.paintMultiTexture(5, 5, 0.05F);
        }
        EXPECT_EQ(map.getPointBlendQ(1, 5, 5), blend == 0.0F ? 0 : 65535);
    }
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
    m_map.setPointHeight(3, 3, 0, true); // dug behind standing water
    m_map.addWater(1, 1);
    EXPECT_TRUE(m_map.getPointWater(3, 3));
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
