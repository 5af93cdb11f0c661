#include "sandbox/core/terrain_picker.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
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

/// Where the ray meets the plane through the height of one triangle, solved as two functions of the distance:
/// the ground over the cell is height = base + u * slopeU + v * slopeV on each side of the diagonal.
std::optional<double> meetHalfCell(const HeightField& field, const Ray& ray, int x, int z, bool upperHalf) {
    const double low = field.worldHeight(x, z);
    const double high = field.worldHeight(x + 1, z + 1);
    const double side = upperHalf ? field.worldHeight(x + 1, z) : field.worldHeight(x, z + 1);
    const double slopeU = upperHalf ? side - low : high - side;
    const double slopeV = upperHalf ? high - side : side - low;
    const double gap = ray.origin[1] - low - (ray.origin[0] - x) * slopeU - (ray.origin[2] - z) * slopeV;
    const double closing = ray.direction[1] - ray.direction[0] * slopeU - ray.direction[2] * slopeV;
    if (closing == 0.0) {
        return std::nullopt;
    }
    const double distance = -gap / closing;
    const double u = ray.origin[0] + ray.direction[0] * distance - x;
    const double v = ray.origin[2] + ray.direction[2] * distance - z;
    const bool inside = u >= 0.0 && u <= 1.0 && v >= 0.0 && v <= 1.0 && (upperHalf ? u >= v : v >= u);
    return distance >= 0.0 && inside ? std::optional(distance) : std::nullopt;
}

/// Every triangle of the map, one after the other.
std::optional<double> pickSlowly(const HeightField& field, const Ray& ray) {
    std::optional<double> nearest;
    for (int z = 0; z < field.gridDim; ++z) {
        for (int x = 0; x < field.gridDim; ++x) {
            for (const bool upperHalf : {false, true}) {
                const auto distance = meetHalfCell(field, ray, x, z, upperHalf);
                if (distance.has_value() && distance < nearest.value_or(INFINITY)) {
                    nearest = distance;
                }
            }
        }
    }
    return nearest;
}

TEST_F(TerrainPicker, FindsWhatAWalkOverEveryTriangleFinds) {
    int hits = 0;
    for (const int gridDim : {1, 2, 7, 24}) {
        makeRandomGround(gridDim, gridDim == 7 ? 0 : 120);
        for (int i = 0; i < 1500; ++i) {
            const Ray ray = randomRay();
            const auto expected = pickSlowly(field(), ray);
            const auto hit = pickTerrain(field(), ray);
            ASSERT_EQ(hit.has_value(), expected.has_value()) << "map of " << gridDim << ", ray " << i;
            if (hit.has_value()) {
                ++hits;
                ASSERT_NEAR(hit->distance, *expected, 1e-7) << "map of " << gridDim << ", ray " << i;
                ASSERT_GE(hit->point[0], hit->x - 1e-6);
                ASSERT_LE(hit->point[0], hit->x + 1 + 1e-6);
                ASSERT_GE(hit->point[2], hit->z - 1e-6);
                ASSERT_LE(hit->point[2], hit->z + 1 + 1e-6);
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
