#pragma once

/// Three floats in map units: x and z are the grid axes, y points up.
class qxCVector3d {
public:
    float x = 0.0F;
    float y = 0.0F;
    float z = 0.0F;

    constexpr qxCVector3d() = default;
    constexpr qxCVector3d(float xIn, float yIn, float zIn) : x(xIn), y(yIn), z(zIn) {}

    friend constexpr bool operator==(const qxCVector3d&, const qxCVector3d&) = default;
};

constexpr qxCVector3d operator+(const qxCVector3d& a, const qxCVector3d& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
constexpr qxCVector3d operator-(const qxCVector3d& a, const qxCVector3d& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
constexpr qxCVector3d operator-(const qxCVector3d& v) {
    return {-v.x, -v.y, -v.z};
}
constexpr qxCVector3d operator*(const qxCVector3d& v, float s) {
    return {v.x * s, v.y * s, v.z * s};
}
