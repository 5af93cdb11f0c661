#include "sandbox/core/view_camera.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

using Vector = CViewCamera::Vector;

constexpr double RADIANS = std::numbers::pi / 180.0;
constexpr double NARROWEST_FOV = 0.5 * RADIANS;
constexpr double WIDEST_FOV = 170.0 * RADIANS;
constexpr double MAX_PITCH = 89.0 * RADIANS;
constexpr double FIRST_PITCH = -33.0 * RADIANS;
constexpr double NEAREST_PIVOT = 1.0;
constexpr double NEAR_FRACTION = 0.02; // of the distance to the pivot
constexpr double NEAREST_NEAR = 0.05;

double dot(const Vector& a, const Vector& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

/// a + b * factor
Vector plus(const Vector& a, const Vector& b, double factor) {
    return {a[0] + b[0] * factor, a[1] + b[1] * factor, a[2] + b[2] * factor};
}

QVector3D toFloats(const Vector& v) {
    return {static_cast<float>(v[0]), static_cast<float>(v[1]), static_cast<float>(v[2])};
}

} // namespace

bool CFrustum::mayContain(const Vector& low, const Vector& high) const {
    return std::ranges::all_of(m_planes, [&](const Plane& plane) {
        // The corner of the box that lies farthest along the plane's normal.
        const Vector corner{plane.normal[0] > 0.0 ? high[0] : low[0],
                            plane.normal[1] > 0.0 ? high[1] : low[1],
                            plane.normal[2] > 0.0 ? high[2] : low[2]};
        return dot(plane.normal, corner) + plane.offset >= 0.0;
    });
}

void CViewCamera::frameMap(double mapWidth, double groundHeight) {
    const Vector middle{mapWidth / 2.0, groundHeight, mapWidth * 0.53};
    m_fYaw = 0.0;
    m_fPitch = FIRST_PITCH;
    m_fPivotDistance = std::max(mapWidth * 1.15, NEAREST_PIVOT);
    m_eye = plus(middle, forward(), -m_fPivotDistance);
    m_fFar = std::max(mapWidth * 6.0, 100.0);
}

Vector CViewCamera::forward() const {
    return {std::cos(m_fPitch) * std::sin(m_fYaw), std::sin(m_fPitch),
            -std::cos(m_fPitch) * std::cos(m_fYaw)};
}

Vector CViewCamera::right() const {
    const Vector level{std::cos(m_fYaw), 0.0, std::sin(m_fYaw)};
    const double turn = std::cos(m_fRoll);
    return plus({level[0] * turn, 0.0, level[2] * turn}, levelUp(), -std::sin(m_fRoll));
}

Vector CViewCamera::up() const {
    const Vector upright = levelUp();
    const double turn = std::cos(m_fRoll);
    return plus({upright[0] * turn, upright[1] * turn, upright[2] * turn},
                {std::cos(m_fYaw), 0.0, std::sin(m_fYaw)}, std::sin(m_fRoll));
}

Vector CViewCamera::levelUp() const {
    return {-std::sin(m_fPitch) * std::sin(m_fYaw), std::cos(m_fPitch),
            std::sin(m_fPitch) * std::cos(m_fYaw)};
}

Vector CViewCamera::pivot() const {
    return plus(m_eye, forward(), m_fPivotDistance);
}

double CViewCamera::tanHalfFov() const {
    return std::tan(m_fHalfFov);
}

Ray CViewCamera::ray(double viewX, double viewY, double aspect) const {
    const Vector sideways = plus(forward(), right(), viewX * tanHalfFov() * aspect);
    return {m_eye, plus(sideways, up(), viewY * tanHalfFov())};
}

QMatrix4x4 CViewCamera::viewProjection(double aspect) const {
    QMatrix4x4 matrix;
    const double nearDistance = std::max(m_fPivotDistance * NEAR_FRACTION, NEAREST_NEAR);
    matrix.perspective(static_cast<float>(2.0 * m_fHalfFov / RADIANS), static_cast<float>(aspect),
                       static_cast<float>(nearDistance), static_cast<float>(m_fFar));
    matrix.lookAt(toFloats(m_eye), toFloats(plus(m_eye, forward(), 1.0)), toFloats(up()));
    return matrix;
}

CFrustum CViewCamera::frustum(double aspect) const {
    const double halfHeight = tanHalfFov();
    const double halfWidth = halfHeight * aspect;
    const Vector ahead = forward();
    const auto plane = [&](const Vector& normal) { return CFrustum::Plane{normal, -dot(normal, m_eye)}; };
    const auto side = [&](const Vector& axis, double half, double sign) {
        return plane(plus({axis[0] * sign, axis[1] * sign, axis[2] * sign}, ahead, half));
    };
    return CFrustum({plane(ahead), side(right(), halfWidth, 1.0), side(right(), halfWidth, -1.0),
                     side(up(), halfHeight, 1.0), side(up(), halfHeight, -1.0)});
}

void CViewCamera::look(double yaw, double pitch) {
    m_fYaw = std::remainder(m_fYaw + yaw, 2.0 * std::numbers::pi);
    m_fPitch = std::clamp(m_fPitch + pitch, -MAX_PITCH, MAX_PITCH);
}

void CViewCamera::orbit(double yaw, double pitch) {
    const Vector centre = pivot();
    look(yaw, pitch);
    m_eye = plus(centre, forward(), -m_fPivotDistance);
}

void CViewCamera::move(double ahead, double sideways, double rise) {
    m_eye = plus(plus(m_eye, forward(), ahead), right(), sideways);
    m_eye[1] += rise;
}

void CViewCamera::approach(double factor) {
    const Vector centre = pivot();
    m_fPivotDistance = std::clamp(m_fPivotDistance * factor, NEAREST_PIVOT, m_fFar / 2.0);
    m_eye = plus(centre, forward(), -m_fPivotDistance);
}

void CViewCamera::approachPoint(const Vector& point, double factor) {
    const Vector way = plus(point, m_eye, -1.0);
    const double distance = std::sqrt(dot(way, way));
    if (distance * factor < NEAREST_PIVOT || distance * factor > m_fFar / 2.0) {
        return;
    }
    m_eye = plus(m_eye, way, 1.0 - factor);
    setPivotDistance(m_fPivotDistance * factor);
}

void CViewCamera::setPivotDistance(double distance) {
    m_fPivotDistance = std::clamp(distance, NEAREST_PIVOT, m_fFar / 2.0);
}

void CViewCamera::lookFrom(const Vector& eye, const Vector& target) {
    const Vector way = plus(target, eye, -1.0);
    m_eye = eye;
    m_fYaw = std::atan2(way[0], -way[2]);
    m_fPitch = std::clamp(std::atan2(way[1], std::hypot(way[0], way[2])), -MAX_PITCH, MAX_PITCH);
    setPivotDistance(std::sqrt(dot(way, way)));
}

void CViewCamera::takePose(const Pose& pose, double farDistance) {
    m_eye = pose.eye;
    m_fYaw = pose.yaw;
    m_fPitch = pose.pitch;
    m_fRoll = pose.roll;
    m_fHalfFov = std::clamp(pose.fieldOfView, NARROWEST_FOV, WIDEST_FOV) / 2.0;
    m_fFar = farDistance;
}

void CViewCamera::keepAbove(double height) {
    m_eye[1] = std::max(m_eye[1], height);
}
