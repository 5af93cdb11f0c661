#include "sandbox/core/terrain_picker.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace {

using Vector = std::array<double, 3>;

constexpr double NEVER = std::numeric_limits<double>::infinity();
// Widens triangles by a hair, so that a ray through the very edge between two of them cannot slip between.
constexpr double EDGE_TOLERANCE = 1e-9;

Vector subtract(const Vector& a, const Vector& b) {
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

Vector cross(const Vector& a, const Vector& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double dot(const Vector& a, const Vector& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Vector along(const Ray& ray, double distance) {
    return {ray.origin[0] + ray.direction[0] * distance, ray.origin[1] + ray.direction[1] * distance,
            ray.origin[2] + ray.direction[2] * distance};
}

/// Möller and Trumbore, "Fast, minimum storage ray/triangle intersection" (1997), both faces.
double intersectTriangle(const Ray& ray, const Vector& a, const Vector& b, const Vector& c) {
    const Vector side1 = subtract(b, a);
    const Vector side2 = subtract(c, a);
    const Vector p = cross(ray.direction, side2);
    const double determinant = dot(side1, p);
    if (determinant == 0.0) {
        return NEVER;
    }
    const Vector fromA = subtract(ray.origin, a);
    const double u = dot(fromA, p) / determinant;
    const Vector q = cross(fromA, side1);
    const double v = dot(ray.direction, q) / determinant;
    if (u < -EDGE_TOLERANCE || v < -EDGE_TOLERANCE || u + v > 1.0 + EDGE_TOLERANCE) {
        return NEVER;
    }
    const double distance = dot(side2, q) / determinant;
    return distance >= 0.0 ? distance : NEVER;
}

double intersectCell(const HeightField& field, const Ray& ray, int x, int z) {
    const auto corner = [&](int cornerX, int cornerZ) {
        return Vector{static_cast<double>(cornerX), field.worldHeight(cornerX, cornerZ),
                      static_cast<double>(cornerZ)};
    };
    const Vector low = corner(x, z);
    const Vector high = corner(x + 1, z + 1);
    return std::min(intersectTriangle(ray, low, corner(x + 1, z), high),
                    intersectTriangle(ray, low, high, corner(x, z + 1)));
}

/// The stretch of the ray over the map, seen from above. Empty (first > second) when it passes beside it.
std::pair<double, double> clipToMap(const Ray& ray, double gridDim) {
    double enter = 0.0;
    double leave = NEVER;
    for (const std::size_t axis : {0U, 2U}) {
        if (ray.direction[axis] == 0.0) {
            if (ray.origin[axis] < 0.0 || ray.origin[axis] > gridDim) {
                return {1.0, 0.0};
            }
            continue;
        }
        const double low = -ray.origin[axis] / ray.direction[axis];
        const double high = (gridDim - ray.origin[axis]) / ray.direction[axis];
        enter = std::max(enter, std::min(low, high));
        leave = std::min(leave, std::max(low, high));
    }
    return {enter, leave};
}

/// One axis of the walk from cell to cell (Amanatides and Woo, "A fast voxel traversal algorithm", 1987).
class CGridAxis {
public:
    CGridAxis(double origin, double direction, double enter, int gridDim)
        : m_nCell(std::clamp(static_cast<int>(std::floor(origin + direction * enter)), 0, gridDim - 1))
        , m_nStep(direction > 0.0 ? 1 : -1)
        , m_nGridDim(gridDim)
        , m_fOrigin(origin)
        , m_fDirection(direction) {
        findNext();
    }

    int cell() const { return m_nCell; }
    double next() const { return m_fNext; }
    bool advance() {
        m_nCell += m_nStep;
        findNext();
        return m_nCell >= 0 && m_nCell < m_nGridDim;
    }

private:
    void findNext() {
        const double border = m_nCell + (m_nStep > 0 ? 1 : 0);
        m_fNext = m_fDirection == 0.0 ? NEVER : (border - m_fOrigin) / m_fDirection;
    }

    int m_nCell;
    int m_nStep;
    int m_nGridDim;
    double m_fOrigin;
    double m_fDirection;
    double m_fNext = NEVER;
};

/// False when the ray passes wholly above or below the cell between two distances.
bool mayMeetCell(const HeightField& field, const Ray& ray, int x, int z, double from, double to) {
    const auto [low, high] = std::minmax({field.worldHeight(x, z), field.worldHeight(x + 1, z),
                                          field.worldHeight(x, z + 1), field.worldHeight(x + 1, z + 1)});
    constexpr double SLACK = 1e-6;
    const double height1 = ray.origin[1] + ray.direction[1] * from;
    const double height2 = std::isinf(to) ? ray.direction[1] * NEVER : ray.origin[1] + ray.direction[1] * to;
    return !(std::min(height1, height2) > high + SLACK || std::max(height1, height2) < low - SLACK);
}

TerrainHit describeHit(const Ray& ray, int x, int z, double distance) {
    TerrainHit hit;
    hit.x = x;
    hit.z = z;
    hit.distance = distance;
    hit.point = along(ray, distance);
    const double u = std::clamp(hit.point[0] - x, 0.0, 1.0);
    const double v = std::clamp(hit.point[2] - z, 0.0, 1.0);
    hit.corner = nearestCorner(u, v);
    hit.edge = nearestEdge(u, v);
    return hit;
}

bool isUsable(const Ray& ray) {
    const auto finite = [](double value) { return std::isfinite(value); };
    return std::ranges::all_of(ray.origin, finite) && std::ranges::all_of(ray.direction, finite) &&
           dot(ray.direction, ray.direction) > 0.0;
}

} // namespace

std::optional<TerrainHit> pickTerrain(const HeightField& field, const Ray& ray) {
    if (field.gridDim < 1 || !isUsable(ray)) {
        return std::nullopt;
    }
    const auto [enter, leave] = clipToMap(ray, field.gridDim);
    if (enter > leave) {
        return std::nullopt;
    }
    CGridAxis xAxis(ray.origin[0], ray.direction[0], enter, field.gridDim);
    CGridAxis zAxis(ray.origin[2], ray.direction[2], enter, field.gridDim);
    double from = enter;
    bool inside = true;
    while (inside) {
        const int x = xAxis.cell();
        const int z = zAxis.cell();
        const double to = std::min(xAxis.next(), zAxis.next());
        if (mayMeetCell(field, ray, x, z, from, to)) {
            const double distance = intersectCell(field, ray, x, z);
            if (distance != NEVER) {
                return describeHit(ray, x, z, distance);
            }
        }
        if (to == NEVER) {
            break;
        }
        from = to;
        inside = xAxis.next() <= zAxis.next() ? xAxis.advance() : zAxis.advance();
    }
    return std::nullopt;
}

int nearestCorner(double u, double v) {
    if (v < 0.5) {
        return u < 0.5 ? 0 : 1;
    }
    return u < 0.5 ? 3 : 2;
}

int nearestEdge(double u, double v) {
    constexpr double HALF_DIAGONAL = 1.0 / std::numbers::sqrt2;
    const std::array<double, 6> distances{
        v, 1.0 - u, 1.0 - v, u, std::abs(u - v) * HALF_DIAGONAL, std::abs(u + v - 1.0) * HALF_DIAGONAL};
    return static_cast<int>(std::ranges::min_element(distances) - distances.begin());
}
