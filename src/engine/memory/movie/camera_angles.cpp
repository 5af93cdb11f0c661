#include "engine/memory/movie/camera_angles.h"

#include <cmath>
#include <numbers>

namespace {

constexpr double DEGREES = 180.0 / std::numbers::pi;

} // namespace

void qxCVector3d::toAngles(float& pitch, float& heading) const {
    const double across = x;
    const double ahead = z;
    pitch = static_cast<float>(std::atan2(static_cast<double>(y), std::hypot(across, ahead)) * DEGREES);
    heading = static_cast<float>(std::atan2(across, ahead) * DEGREES);
    if (across == 0.0 && ahead == 0.0) {
        heading = 0.0F; // not the 180 degrees of a negative zero
    }
}

qxCVector3d directionOf(const qxCVector3d& rotation) {
    const double pitch = rotation.x / DEGREES;
    const double heading = rotation.y / DEGREES;
    return {static_cast<float>(std::cos(pitch) * std::sin(heading)), static_cast<float>(std::sin(pitch)),
            static_cast<float>(std::cos(pitch) * std::cos(heading))};
}
