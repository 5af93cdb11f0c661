#include "sandbox/core/chunk_grid.h"
#include "sandbox/core/ground_normals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

namespace {

constexpr int CELLS = CChunkGrid::CHUNK_CELLS;

class ChunkGrid : public testing::Test {
protected:
    static constexpr int GRID_DIM = 150; // two chunks of 64 and a rest, each way

    ChunkGrid() { m_grid.rebuild(field()); }

    HeightField field() const { return {GRID_DIM, 0.1, m_heights.data()}; }
    std::uint16_t& at(int x, int z) { return m_heights[static_cast<std::size_t>(z * (GRID_DIM + 1) + x)]; }
    template <class Height> void form(Height height) {
        for (int z = 0; z <= GRID_DIM; ++z) {
            for (int x = 0; x <= GRID_DIM; ++x) {
                at(x, z) = static_cast<std::uint16_t>(height(x, z));
            }
        }
        m_grid.rebuild(field());
    }

    std::vector<std::uint16_t> m_heights =
        std::vector<std::uint16_t>(std::size_t{GRID_DIM + 1} * (GRID_DIM + 1), 100);
    CChunkGrid m_grid;
};

TEST_F(ChunkGrid, AChangeTouchesTheChunksThatShareItsPointsOnly) {
    struct Case {
        GridRect changed;
        int chunks;
    };
    for (const Case& c : {Case{{10, 10, 20, 20}, 1}, Case{{64, 10, 64, 10}, 2}, Case{{63, 63, 63, 63}, 1},
                          Case{{64, 64, 64, 64}, 4}, Case{{0, 0, 150, 150}, 9}, Case{{150, 150, 150, 150}, 1},
                          Case{{130, 3, 131, 140}, 3}, Case{GridRect(), 0}}) {
        EXPECT_EQ(m_grid.update(field(), c.changed), c.chunks)
            << c.changed.x0 << ", " << c.changed.z0 << " to " << c.changed.x1 << ", " << c.changed.z1;
    }
}

TEST_F(ChunkGrid, APeakIsMissedByTheLevelsThatSkipItsPoint) {
    struct Case {
        int x, z, firstLevelThatMisses, besideIt;
    };
    // The last lies on the border of two chunks, and counts in both.
    for (const Case& c : {Case{33, 10, 1, 0}, Case{34, 12, 2, 0}, Case{36, 40, 3, 0}, Case{32, 32, 6, 0},
                          Case{64, 21, 1, 90}}) {
        SCOPED_TRACE(testing::Message() << c.x << ", " << c.z);
        at(c.x, c.z) = 190;
        m_grid.update(field(), {c.x, c.z, c.x, c.z});
        for (int level = 0; level < CChunkGrid::LEVELS; ++level) {
            // Levels that keep the point make it a tent wider than it is, and so stray beside it.
            EXPECT_EQ(m_grid.error(0, 0, level) >= 90, level >= c.firstLevelThatMisses) << level;
        }
        EXPECT_EQ(m_grid.error(1, 0, 6), c.besideIt);
        EXPECT_EQ(m_grid.heightRange(), (std::array<int, 2>{100, 190}));
        at(c.x, c.z) = 100;
        m_grid.update(field(), {c.x, c.z, c.x, c.z});
        EXPECT_EQ(m_grid.error(0, 0, 6), 0);
    }
}

/// What the eye sees of a level's error is never more than the tolerance, nearer chunks are never coarser
/// than the tolerance demands, and the whole map is drawn when all of it is in sight.
TEST_F(ChunkGrid, ChosenLevelsStayWithinTheTolerance) {
    form([](int x, int z) { return 300 + 60 * std::sin(x * 0.3) + 40 * std::cos(z * 0.17 + x * 0.05); });
    CViewCamera camera;
    std::set<int> levels;
    for (const double distance : {60.0, 200.0, 500.0, 2000.0}) {
        camera.lookFrom({75.0, 40.0 + distance * 0.5, 150.0 + distance}, {75.0, 30.0, 75.0});
        const auto visible = m_grid.select(camera, 1.5, 800, 1.0);
        if (distance >= 200.0) {
            EXPECT_EQ(visible.size(), 9U) << distance;
        }
        for (const CChunkGrid::Visible& chunk : visible) {
            levels.insert(chunk.level);
            const double dx = std::max({chunk.x - camera.eye()[0], 0.0, camera.eye()[0] - chunk.x - CELLS});
            const double dz = std::max({chunk.z - camera.eye()[2], 0.0, camera.eye()[2] - chunk.z - CELLS});
            const double away = std::hypot(dx, camera.eye()[1], dz);
            const double pixelsPerUnit = 400.0 / camera.tanHalfFov() / away;
            const double error = m_grid.error(chunk.x / CELLS, chunk.z / CELLS, chunk.level) * 0.1;
            // The true distance is at least that to the highest ground, hence a little more than one pixel.
            EXPECT_LE(error * pixelsPerUnit, 1.4)
                << "chunk " << chunk.x << ", " << chunk.z << " from " << distance;
            EXPECT_GT(chunk.skirt, error);
        }
    }
    EXPECT_GT(levels.size(), 2U) << "near and far must differ";
}

TEST_F(ChunkGrid, ChunksOutOfSightAreLeftOut) {
    CViewCamera camera;
    camera.lookFrom({75.0, 30.0, 75.0}, {140.0, 10.0, 75.0}); // from the middle towards +x
    for (const CChunkGrid::Visible& chunk : m_grid.select(camera, 1.0, 600, 1.0)) {
        EXPECT_GE(chunk.x, CELLS) << "behind the camera";
    }
    camera.lookFrom({75.0, 30.0, -50.0}, {75.0, 60.0, -200.0});
    EXPECT_TRUE(m_grid.select(camera, 1.0, 600, 1.0).empty()) << "the map is behind";
}

TEST_F(ChunkGrid, NormalsLeanAwayFromTheSlope) {
    form([](int x, int /*z*/) { return 100 + x * 10; }); // one world unit a cell: 45 degrees
    const auto expected = static_cast<std::int16_t>(std::lround(-std::sqrt(0.5) * 32767.0));
    for (const int x : {0, 40, GRID_DIM}) {
        const auto normals = groundNormals(field(), {x, 7, x, 8});
        ASSERT_EQ(normals.size(), 4U);
        EXPECT_EQ(normals[0], expected) << x;
        EXPECT_EQ(normals[1], 0) << x;
    }
}

} // namespace
