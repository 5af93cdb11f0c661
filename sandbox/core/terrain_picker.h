#pragma once

#include "sandbox/core/height_field.h"
#include "sandbox/core/ray.h"

#include <array>
#include <optional>

/// Where a ray met the ground.
struct TerrainHit {
    int x = 0;                     ///< cell
    int z = 0;                     ///< cell
    int corner = 0;                ///< the cell's corner nearest the hit, 0 to 3
    int edge = 0;                  ///< the cell's side (0 to 3) or diagonal (4, 5) nearest the hit
    std::array<double, 3> point{}; ///< world units
    double distance = 0.0;         ///< in lengths of the ray's direction
};

/// First point at or after its origin where the ray meets the ground, from above or below. The ground is what
/// is drawn at full detail: each cell is two triangles that meet along its diagonal from (x, z) to
/// (x + 1, z + 1). Nothing when the ray misses the map or has no direction.
std::optional<TerrainHit> pickTerrain(const HeightField& field, const Ray& ray);

/// Corner 0 to 3 of a cell that is nearest to (u, v), the position in the cell, 0 to 1 along x and z. Corners
/// run around the cell: (0, 0), (1, 0), (1, 1), (0, 1).
int nearestCorner(double u, double v);

/// Side or diagonal of a cell nearest to (u, v): 0 the side at v = 0, 1 at u = 1, 2 at v = 1, 3 at u = 0, 4
/// the diagonal from (0, 0) to (1, 1), 5 the other one. The lowest number wins a tie.
int nearestEdge(double u, double v);
