#include "engine/qx_movie_frame.h"

#include <algorithm>
#include <cstring>

namespace {

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// Bytes of `text` that fit in `most`, whole UTF-8 characters only.
std::size_t fittingLength(const char* text, std::size_t most) {
    std::size_t length = ::strnlen(text, most + 1);
    if (length <= most) {
        return length;
    }
    length = most;
    while (length > 0 && isContinuation(text[length])) {
        --length;
    }
    return length;
}

} // namespace

qxCMovieFrame::qxCMovieFrame() = default;

qxCMovieFrame::~qxCMovieFrame() = default;

qxCMovieFrame::qxCMovieFrame(const qxCMovieFrame& other)
    : camera(other.camera)
    , translation(other.translation)
    , rotation(other.rotation)
    , fov(other.fov)
    , shake(other.shake)
    , cameraMode(other.cameraMode)
    , frameMode(other.frameMode)
    , fadeMode(other.fadeMode)
    , fadeColour(other.fadeColour)
    , keyframe(other.keyframe)
    , targetName(other.targetName)
    , fadeLevel(other.fadeLevel)
    , easeIn(other.easeIn)
    , easeOut(other.easeOut) {
    std::ranges::copy(other.animTrigger, animTrigger);
}

qxCMovieFrame& qxCMovieFrame::operator=(const qxCMovieFrame& other) {
    if (this == &other) {
        return *this;
    }
    const bool markChanges = keyframe != other.keyframe;
    camera = other.camera;
    translation = other.translation;
    rotation = other.rotation;
    fov = other.fov;
    shake = other.shake;
    cameraMode = other.cameraMode;
    frameMode = other.frameMode;
    fadeMode = other.fadeMode;
    fadeColour = other.fadeColour;
    keyframe = other.keyframe;
    targetName = other.targetName;
    fadeLevel = other.fadeLevel;
    std::ranges::copy(other.animTrigger, animTrigger);
    easeIn = other.easeIn;
    easeOut = other.easeOut;
    reportChange(markChanges);
    m_bChanged = false;
    return *this;
}

void qxCMovieFrame::reportChange(bool keyframeMark) {
    m_bChanged = true;
    if (m_pWatcher != nullptr) {
        m_pWatcher->frameChanged(m_nPlace, keyframeMark);
    }
}

template <class Value> void qxCMovieFrame::change(Value& field, const Value& value) {
    if (!(field == value)) {
        field = value;
        reportChange(false);
    }
}

void qxCMovieFrame::setCamera(int index) {
    change(camera, index);
}

void qxCMovieFrame::setTranslation(const qxCVector3d& worldUnits) {
    change(translation, worldUnits);
}

void qxCMovieFrame::setRotation(const qxCVector3d& degrees) {
    change(rotation, degrees);
}

void qxCMovieFrame::setFov(float degrees) {
    change(fov, degrees);
}

void qxCMovieFrame::setShake(float degrees) {
    change(shake, degrees);
}

void qxCMovieFrame::setCameraMode(qxMovieCameraMode mode) {
    change(cameraMode, mode);
}

void qxCMovieFrame::setFrameMode(qxMovieFrameMode mode) {
    change(frameMode, mode);
}

void qxCMovieFrame::setFadeMode(qxMovieFadeMode mode) {
    change(fadeMode, mode);
}

void qxCMovieFrame::setFadeColour(const qxCColour& colour) {
    change(fadeColour, colour);
}

const qxCColour& qxCMovieFrame::getFadeColour() const {
    return fadeColour;
}

void qxCMovieFrame::setKeyframe(bool isKeyframe) {
    if (keyframe != isKeyframe) {
        keyframe = isKeyframe;
        reportChange(true);
    }
}

void qxCMovieFrame::setTargetName(const qxCName& nodeName) {
    if (std::strcmp(targetName.getString(), nodeName.getString()) != 0) {
        targetName = nodeName;
        reportChange(false);
    }
}

void qxCMovieFrame::setAnimTrigger(const char* animation) {
    char text[ANIM_TRIGGER_LENGTH + 1] = {};
    if (animation != nullptr) {
        std::copy_n(animation, fittingLength(animation, ANIM_TRIGGER_LENGTH), text);
    }
    if (std::strcmp(animTrigger, text) != 0) {
        std::ranges::copy(text, animTrigger);
        reportChange(false);
    }
}

void qxCMovieFrame::setEaseIn(float value) {
    if (value == value) {
        change(easeIn, std::clamp(value, 0.0F, 1.0F));
    }
}

void qxCMovieFrame::setEaseOut(float value) {
    if (value == value) {
        change(easeOut, std::clamp(value, 0.0F, 1.0F));
    }
}

bool qxCMovieFrame::hasChanged() {
    const bool changed = m_bChanged;
    m_bChanged = false;
    return changed;
}

void qxCMovieFrame::watch(qxCMovieFrameWatcher* watcher, int place) {
    m_pWatcher = watcher;
    m_nPlace = place;
}
