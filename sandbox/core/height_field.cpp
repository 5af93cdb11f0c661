#include "sandbox/core/height_field.h"

#include <algorithm>

double groundHeight(const HeightField& field, double x, double z) {
    // In this order what is not a number counts as 0.
    const double onMapX = std::min(std::max(0.0, x), static_cast<double>(field.gridDim));
    const double onMapZ = std::min(std::max(0.0, z), static_cast<double>(field.gridDim));
    const int cellX = std::min(static_cast<int>(onMapX), field.gridDim - 1);
    const int cellZ = std::min(static_cast<int>(onMapZ), field.gridDim - 1);
    const double u = onMapX - cellX;
    const double v = onMapZ - cellZ;
    const double low = field.worldHeight(cellX, cellZ);
    const double high = field.worldHeight(cellX + 1, cellZ + 1);
    if (u >= v) {
        const double side = field.worldHeight(cellX + 1, cellZ);
        return low + (side - low) * u + (high - side) * v;
    }
    const double side = field.worldHeight(cellX, cellZ + 1);
    return low + (high - side) * u + (side - low) * v;
}
