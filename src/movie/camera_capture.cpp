#include "movie/camera_capture.h"

#include <algorithm>

namespace {

/// Turn the frame towards its target, keeping its roll, and the camera with it.
void aimAtTarget(qxCMovie& movie, qxCMovieFrame& frame, qxCCamera& camera) {
    qxCVector3d angles = frame.rotation;
    movie.getTargetDirection(&frame, frame.translation).toAngles(angles.x, angles.y);
    frame.setRotation(angles);
    camera.setRotation(frame.rotation, qxTransformReplace);
}

} // namespace

bool CCameraCapture::isWaiting(int index) const {
    return std::ranges::any_of(m_waiting, [index](const CFrameChange& one) { return one.index() == index; });
}

bool CCameraCapture::moved(qxCMovie& movie, qxCCamera* camera) {
    qxCMovieFrame* const frame = currentFrame(movie);
    if (frame == nullptr || camera == nullptr || movie.getChildCamera(frame->camera) != camera) {
        return false;
    }
    if (!isWaiting(movie.getRangeStart())) {
        m_waiting.emplace_back(movie, movie.getRangeStart());
    }
    frame->setTranslation(camera->position);
    if (frame->cameraMode == qxMovieCameraTarget) {
        aimAtTarget(movie, *frame, *camera);
    } else {
        frame->setRotation(camera->rotation);
    }
    frame->setFov(camera->getFieldOfView());
    frame->setKeyframe(true);
    return true;
}

bool CCameraCapture::finished(qxCMovie& movie, CMovieUndoStore& store) {
    if (currentFrame(movie) == nullptr) {
        return false;
    }
    const int current = movie.getRangeStart();
    const bool isCaptured = isWaiting(current);
    settle(movie, store);
    if (!isCaptured) {
        CFrameChange(movie, current).record(movie, store);
    }
    movie.updateTweening();
    return true;
}

void CCameraCapture::settle(qxCMovie& movie, CMovieUndoStore& store) {
    for (const CFrameChange& change : m_waiting) {
        change.record(movie, store);
    }
    m_waiting.clear();
}
