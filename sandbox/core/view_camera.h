#pragma once

#include "sandbox/core/ray.h"

#include <QMatrix4x4>
#include <array>
#include <numbers>

/// The pyramid that a camera sees, open to the far end.
class CFrustum {
public:
    struct Plane {
        std::array<double, 3> normal{}; ///< towards the inside
        double offset = 0.0;
    };

    explicit CFrustum(const std::array<Plane, 5>& planes) : m_planes(planes) {}
    /// False only when the box is certainly out of sight.
    bool mayContain(const std::array<double, 3>& low, const std::array<double, 3>& high) const;

private:
    std::array<Plane, 5> m_planes;
};

/// The camera of the 3D view: an eye with a direction, and a pivot ahead of it to orbit about. World units,
/// y up, x to the right and z towards the viewer when the yaw is 0. Angles are radians. It is level and sees
/// 48 degrees of height unless it takes the place of another camera.
class CViewCamera {
public:
    using Vector = std::array<double, 3>;

    /// Stand south of the middle of a map and look down on it so that all of it is seen.
    void frameMap(double mapWidth, double groundHeight);

    const Vector& eye() const { return m_eye; }
    Vector forward() const;
    Vector right() const;
    Vector up() const;
    Vector pivot() const;
    double tanHalfFov() const;
    double yaw() const { return m_fYaw; }
    double pitch() const { return m_fPitch; }

    /// Half-line through a point of the view; both coordinates -1 to 1 from left and bottom.
    Ray ray(double viewX, double viewY, double aspect) const;
    /// World to clip space, for a view `aspect` times as wide as high.
    QMatrix4x4 viewProjection(double aspect) const;
    CFrustum frustum(double aspect) const;

    /// Turn on the spot. Positive: to the right, upwards.
    void look(double yaw, double pitch);
    /// Turn about the pivot. Positive: the eye goes to the left around it, downwards.
    void orbit(double yaw, double pitch);
    /// Shift eye and pivot, in world units along the view's own axes; `rise` is along the vertical.
    void move(double ahead, double sideways, double rise);
    /// Change the distance to the pivot by a factor.
    void approach(double factor);
    /// Change the distance to a point that is seen, by a factor, so that it stays where it is in the view.
    void approachPoint(const Vector& point, double factor);
    /// Make a point straight ahead, this far away, the pivot.
    void setPivotDistance(double distance);
    double pivotDistance() const { return m_fPivotDistance; }
    /// Stand at `eye` and look at `target`, which becomes the pivot.
    void lookFrom(const Vector& eye, const Vector& target);
    /// Where another camera stands and how it sees. Positive: to the right, upwards, the right side down.
    struct Pose {
        Vector eye{};
        double yaw = 0.0;
        double pitch = 0.0;
        double roll = 0.0;
        double fieldOfView = 0.0; ///< from the lower to the upper edge; held to what can be drawn
    };
    /// Take that camera's place, the pivot as far ahead as before; `farDistance` is the range of depths that
    /// are drawn.
    void takePose(const Pose& pose, double farDistance);
    /// Lift the eye to at least this height.
    void keepAbove(double height);
    /// Range of depths that are drawn; set when a map is framed.
    double farDistance() const { return m_fFar; }

private:
    static constexpr double HALF_FOV = 24.0 * std::numbers::pi / 180.0; // vertical

    Vector levelUp() const;

    Vector m_eye{};
    double m_fYaw = 0.0;   // 0 looks along -z, positive turns to the right
    double m_fPitch = 0.0; // positive looks up
    double m_fRoll = 0.0;
    double m_fHalfFov = HALF_FOV;
    double m_fPivotDistance = 1.0;
    double m_fFar = 1000.0;
};
