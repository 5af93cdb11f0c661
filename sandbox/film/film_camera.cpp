#include "sandbox/film/film_camera.h"

#include <cmath>
#include <numbers>

namespace {

constexpr double RADIANS = std::numbers::pi / 180.0;

// A film's camera looks along z with heading 0, the view's against it with yaw 0.
double yawOf(const qxCVector3d& rotation) {
    return std::numbers::pi - rotation.y * RADIANS;
}

double pitchOf(const qxCVector3d& rotation) {
    return rotation.x * RADIANS;
}

} // namespace

void lookThrough(CViewCamera& view, const qxCVector3d& position, const qxCVector3d& rotation,
                 float fieldOfView, double farDistance) {
    view.takePose({{position.x, position.y, position.z},
                   yawOf(rotation),
                   pitchOf(rotation),
                   rotation.z * RADIANS,
                   fieldOfView * RADIANS},
                  farDistance);
}

void moveTo(qxCCamera& camera, const CViewCamera& view) {
    const CViewCamera::Vector& eye = view.eye();
    camera.position = {static_cast<float>(eye[0]), static_cast<float>(eye[1]), static_cast<float>(eye[2])};
    qxCVector3d rotation = camera.rotation;
    if (view.yaw() != yawOf(rotation) || view.pitch() != pitchOf(rotation)) {
        rotation.x = static_cast<float>(view.pitch() / RADIANS);
        const double heading = (std::numbers::pi - view.yaw()) / RADIANS;
        rotation.y = static_cast<float>(std::remainder(heading, 360.0));
        camera.setRotation(rotation, qxTransformReplace);
    }
}
