#include "sandbox/core/ground_normals.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

std::int16_t toFraction(double value) {
    return static_cast<std::int16_t>(std::lround(value * std::numeric_limits<std::int16_t>::max()));
}

} // namespace

std::vector<std::int16_t> groundNormals(const HeightField& field, const GridRect& points) {
    std::vector<std::int16_t> normals;
    if (points.isEmpty()) {
        return normals;
    }
    normals.reserve(static_cast<std::size_t>(points.x1 - points.x0 + 1) *
                    static_cast<std::size_t>(points.z1 - points.z0 + 1) * 2);
    for (int z = points.z0; z <= points.z1; ++z) {
        const int north = std::max(z - 1, 0);
        const int south = std::min(z + 1, field.gridDim);
        for (int x = points.x0; x <= points.x1; ++x) {
            const int west = std::max(x - 1, 0);
            const int east = std::min(x + 1, field.gridDim);
            const double slopeX = (field.worldHeight(east, z) - field.worldHeight(west, z)) / (east - west);
            const double slopeZ =
                (field.worldHeight(x, south) - field.worldHeight(x, north)) / (south - north);
            const double length = std::sqrt(slopeX * slopeX + slopeZ * slopeZ + 1.0);
            normals.push_back(toFraction(-slopeX / length));
            normals.push_back(toFraction(-slopeZ / length));
        }
    }
    return normals;
}
