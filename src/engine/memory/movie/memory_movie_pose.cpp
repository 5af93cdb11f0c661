#include "engine/memory/movie/camera_angles.h"
#include "engine/memory/movie/memory_movie.h"
#include "engine/qx_scene.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>

namespace {

const qxCNode* findByName(const qxCNode* node, const char* name) {
    if (node == nullptr || std::strcmp(node->name.getString(), name) == 0) {
        return node;
    }
    const int children = node->getNumChildNodes();
    for (int i = 0; i < children; ++i) {
        if (const qxCNode* const found = findByName(node->getChildNode(i), name)) {
            return found;
        }
    }
    return nullptr;
}

} // namespace

qxCVector3d shaken(const qxCVector3d& rotation, float shake, double seconds) {
    // Two waves each whose periods never meet again within a movie.
    const auto wave = [seconds](double fast, double slow) {
        const double turn = 2.0 * std::numbers::pi * seconds;
        return static_cast<float>(0.5 * (std::sin(turn * fast) + std::sin(turn * slow)));
    };
    return {rotation.x + shake * wave(8.31, 5.17), rotation.y + shake * wave(7.43, 4.61), rotation.z};
}

std::optional<qxCVector3d> CMemoryMovie::directionToTarget(const qxCMovieFrame& frame,
                                                           const qxCVector3d& point) const {
    const char* const target = frame.targetName.getString();
    const qxCNode* const node = *target != 0 ? findByName(m_pScene, target) : nullptr;
    if (node == nullptr) {
        return std::nullopt;
    }
    const qxCVector3d way = node->position - point;
    const double length = std::hypot(static_cast<double>(way.x), static_cast<double>(way.y), way.z);
    if (!(length > 0.0) || !std::isfinite(length)) {
        return std::nullopt;
    }
    return qxCVector3d{static_cast<float>(way.x / length), static_cast<float>(way.y / length),
                       static_cast<float>(way.z / length)};
}

qxCVector3d CMemoryMovie::getTargetDirection(qxCMovieFrame* frame, const qxCVector3d& point) {
    if (frame == nullptr) {
        return {};
    }
    if (const std::optional<qxCVector3d> direction = directionToTarget(*frame, point)) {
        return *direction;
    }
    const qxCCamera* const camera = getChildCamera(frame->camera);
    return directionOf(camera != nullptr ? camera->rotation : frame->rotation);
}

void CMemoryMovie::aim(MoviePose& pose, const qxCMovieFrame& frame) const {
    if (frame.cameraMode != qxMovieCameraTarget) {
        return;
    }
    if (const std::optional<qxCVector3d> direction = directionToTarget(frame, pose.position)) {
        direction->toAngles(pose.rotation.x, pose.rotation.y);
    }
}

double CMemoryMovie::positionAt(double seconds) const {
    const double last = lastFrame();
    const double inFrames = seconds * m_fStepRate;
    if (!(inFrames > 0.0)) {
        return 0.0;
    }
    if (inFrames >= last) {
        return last;
    }
    // The time of a frame is rounded to a float; the frame is meant.
    const double nearest = std::round(inFrames);
    return convertFrameToTime(static_cast<int>(nearest)) == static_cast<float>(seconds) ? nearest : inFrames;
}

MoviePose CMemoryMovie::poseAt(double seconds) const {
    const double inFrames = positionAt(seconds);
    const std::vector<int>& keys = keyframes();
    const auto after = std::ranges::upper_bound(keys, static_cast<int>(inFrames));
    if (after == keys.begin() || after == keys.end()) {
        const qxCMovieFrame& frame = *m_frames[static_cast<std::size_t>(inFrames)];
        MoviePose pose{frame.camera, frame.translation, frame.rotation,  frame.fov,
                       frame.shake,  frame.fadeLevel,   frame.fadeColour};
        aim(pose, frame);
        return pose;
    }
    const CTweenSpan span = makeSpan(m_frames, keys, static_cast<std::size_t>(after - keys.begin()) - 1);
    const TweenSample sample = span.sample(inFrames);
    const auto& values = sample.values;
    MoviePose pose{span.from().camera,
                   {values[0], values[1], values[2]},
                   {values[3], values[4], values[5]},
                   values[6],
                   values[7],
                   sample.fadeLevel,
                   span.from().fadeColour};
    aim(pose, span.from());
    return pose;
}

void CMemoryMovie::applyPose(double seconds) {
    m_pose = poseAt(seconds);
    if (m_pose.camera < 0 || m_pose.camera >= getNumChildNodes()) {
        return;
    }
    CMemoryCamera& camera = *m_cameras[static_cast<std::size_t>(m_pose.camera)];
    camera.position = m_pose.position;
    camera.setRotation(m_pose.rotation, qxTransformReplace);
    camera.setFieldOfView(m_pose.fieldOfView);
}

void CMemoryMovie::updateManual(float seconds) {
    applyPose(seconds);
}
