#pragma once

#include "engine/qx_api.h"

/// Three floats in map units: x and z are the grid axes, y points up.
class qxCVector3d {
public:
    float x = 0.0F;
    float y = 0.0F;
    float z = 0.0F;

    constexpr qxCVector3d() = default;
    constexpr qxCVector3d(float xIn, float yIn, float zIn) : x(xIn), y(yIn), z(zIn) {}

    /// The angles of the direction held here, in degrees: `pitch` -90 to 90, positive upwards, and `heading`
    /// -180 to 180, 0 along the z axis and 90 along the x axis. Straight up, straight down and no direction
    /// at all have the heading 0. Rotations of nodes and frames are (pitch, heading, roll) in this sense: x =
    /// cos(pitch) sin(heading), y = sin(pitch), z = cos(pitch) cos(heading).
    QX_API void toAngles(float& pitch, float& heading) const;

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
