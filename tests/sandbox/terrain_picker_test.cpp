#include "sandbox/core/terrain_picker.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <set>
#include <vector>

namespace {

using Vector = std::array<double, 3>;

class TerrainPicker : public testing::Test {
protected:
    HeightField field() const { return {m_nGridDim, 0.05, m_heights.data()}; }

    void makeRandomGround(int gridDim, int roughness) {
        m_nGridDim = gridDim;
        std::uniform_int_distribution<int> height(0, roughness);
        m_heights.resize(static_cast<std::size_t>(gridDim + 1) * static_cast<std::size_t>(gridDim + 1));
        for (std::uint16_t& value : m_heights) {
            value = static_cast<std::uint16_t>(height(m_random));
        }
    }

    double uniform(double low, double high) { return std::uniform_real_distribution(low, high)(m_random); }

    /// A ray from above, beside or below the map towards some place in or near it.
    Ray randomRay() {
        const double width = m_nGridDim;
        const Vector origin{uniform(-width, 2 * width), uniform(-5.0, 20.0), uniform(-width, 2 * width)};
        const Vector target{uniform(-2.0, width + 2.0), uniform(0.0, 5.0), uniform(-2.0, width + 2.0)};
        const double length = uniform(0.1, 3.0);
        return {origin,
                {(target[0] - origin[0]) * length, (target[1] - origin[1]) * length,
                 (target[2] - origin[2]) * length}};
    }

    int m_nGridDim = 0;
    std::vector<std::uint16_t> m_heights;
    std::mt19937 m_random{20261122};
};

double at(const Ray& ray, double distance, std::size_t axis) {
    return ray.origin[axis] + ray.direction[axis] * distance;
}

/// Whether the ray is above the ground at this distance; nothing beside the map.
std::optional<bool> isAbove(const HeightField& field, const Ray& ray, double distance) {
    const double x = at(ray, distance, 0);
    const double z = at(ray, distance, 2);
    const bool beside = std::min(x, z) < 0.0 || std::max(x, z) > field.gridDim;
    return beside ? std::nullopt : std::optional(at(ray, distance, 1) > groundHeight(field, x, z));
}

/// The ray stays on one side of the ground until it meets it, or for good.
TEST_F(TerrainPicker, FindsTheFirstPlaceWhereTheRayMeetsTheGround) {
    constexpr double FAR = 60.0;
    int hits = 0;
    for (const int gridDim : {1, 2, 7, 24}) {
        makeRandomGround(gridDim, gridDim == 7 ? 0 : 120);
        for (int i = 0; i < 1500; ++i) {
            SCOPED_TRACE(testing::Message() << "map of " << gridDim << ", ray " << i);
            const Ray ray = randomRay();
            const auto hit = pickTerrain(field(), ray);
            std::set<bool> sides;
            for (int step = 0; step < 500; ++step) {
                if (const auto above = isAbove(field(), ray, (hit ? hit->distance : FAR) * step * 0.001999)) {
                    sides.insert(*above);
                }
            }
            ASSERT_LE(sides.size(), 1U) << "it went through";
            if (hit.has_value()) {
                ++hits;
                const auto& [x, y, z] = hit->point;
                ASSERT_NEAR(y, groundHeight(field(), x, z), 1e-6);
                ASSERT_NEAR(std::hypot(x - at(ray, hit->distance, 0), z - at(ray, hit->distance, 2)), 0,
                            1e-6);
                ASSERT_LE(std::max(std::abs(x - hit->x - 0.5), std::abs(z - hit->z - 0.5)), 0.5 + 1e-6);
            }
        }
    }
    EXPECT_GT(hits, 1500) << "the rays must mostly meet the ground for this to mean anything";
}

TEST_F(TerrainPicker, NoRaySlipsBetweenTriangles) {
    makeRandomGround(16, 60);
    for (int x = 0; x <= 16; ++x) {
        for (int z = 0; z <= 16; ++z) {
            const double height = field().worldHeight(x, z);
            const auto straightDown = pickTerrain(field(), {{double(x), 50.0, double(z)}, {0.0, -1.0, 0.0}});
            ASSERT_TRUE(straightDown.has_value()) << x << ", " << z;
            EXPECT_NEAR(straightDown->point[1], height, 1e-9);
            EXPECT_LE(std::max(straightDown->x, straightDown->z), 15)
                << "the last points are the last cell's";
            const auto alongDiagonal =
                pickTerrain(field(), {{x - 20.0, height + 20.0, z - 20.0}, {1.0, -1.0, 1.0}});
            ASSERT_TRUE(alongDiagonal.has_value()) << x << ", " << z;
        }
    }
}

TEST_F(TerrainPicker, NamesCellCornerAndEdgeAsTheEditorDoes) {
    makeRandomGround(8, 0);
    struct Case {
        double u, v;
        int corner, edge;
    };
    // Edges: 0 from (0, 0) to (1, 0), 1 on to (1, 1), 2 from (0, 1) to (1, 1), 3 from (0, 0) to (0, 1), 4 and
    // 5 the diagonals. Corners run around from (0, 0) by (1, 0).
    for (const Case& c :
         {Case{0.5, 0.05, 1, 0}, Case{0.95, 0.5, 2, 1}, Case{0.5, 0.95, 2, 2}, Case{0.05, 0.5, 3, 3},
          Case{0.3, 0.3, 0, 4}, Case{0.7, 0.7, 2, 4}, Case{0.7, 0.3, 1, 5}, Case{0.3, 0.7, 3, 5},
          Case{0.3, 0.04, 0, 0}, Case{0.04, 0.3, 0, 3}, Case{0.9, 0.7, 2, 1}}) {
        const auto hit = pickTerrain(field(), {{3.0 + c.u, 9.0, 5.0 + c.v}, {0.0, -2.0, 0.0}});
        ASSERT_TRUE(hit.has_value());
        EXPECT_EQ(hit->x, 3);
        EXPECT_EQ(hit->z, 5);
        EXPECT_EQ(hit->corner, c.corner) << c.u << ", " << c.v;
        EXPECT_EQ(hit->edge, c.edge) << c.u << ", " << c.v;
        EXPECT_NEAR(hit->distance, 4.5, 1e-12);
    }
}

TEST_F(TerrainPicker, UselessRaysMeetNothing) {
    makeRandomGround(8, 0);
    const double nan = std::nan("");
    for (const Ray& ray :
         {Ray{{4, 5, 4}, {0, 0, 0}}, Ray{{4, nan, 4}, {0, -1, 0}}, Ray{{4, 5, 4}, {0, -INFINITY, 0}},
          Ray{{4, 5, 4}, {0, 1, 0}}, Ray{{-4, 5, 4}, {0, -1, 0}}, Ray{{4, 5, 4}, {1, 0, 1}}}) {
        EXPECT_FALSE(pickTerrain(field(), ray).has_value());
    }
    EXPECT_FALSE(pickTerrain({}, {{4, 5, 4}, {0, -1, 0}}).has_value());
}

} // namespace
