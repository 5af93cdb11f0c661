#pragma once

#include "engine/qx_api.h"
#include "engine/qx_colour.h"
#include "engine/qx_name.h"
#include "engine/qx_vector3d.h"

/// How the movie goes on from a keyframe to the next: straight, not at all until the next, or along a curve.
enum qxMovieFrameMode { qxMovieFrameLinear = 0, qxMovieFrameSwitch = 1, qxMovieFrameSpline = 2 };

/// In: the picture comes out of the fade colour. Out: it goes into it.
enum qxMovieFadeMode { qxMovieFadeNone = 0, qxMovieFadeIn = 1, qxMovieFadeOut = 2 };

/// Free: the frame's rotation gives the direction. Target: the camera looks at the node of the target name.
enum qxMovieCameraMode { qxMovieCameraFree = 0, qxMovieCameraTarget = 1 };

/// Who wants to know that a setter has given a frame another value: the movie that owns it.
class QX_API qxCMovieFrameWatcher {
public:
    /// `place` is the number given with the watcher, `keyframe` whether the mark of a keyframe changed.
    virtual void frameChanged(int place, bool keyframe) = 0;

protected:
    ~qxCMovieFrameWatcher() = default;
};

/// One frame of a movie. The fields are there to be read; who changes one calls its setter, or neither the
/// undo of an editor nor the movie hears of it.
class QX_API qxCMovieFrame {
public:
    /// Letters that an animation trigger holds at most; a longer text is cut after a whole UTF-8 character.
    static constexpr int ANIM_TRIGGER_LENGTH = 31;

    /// Index of the movie's child camera that this frame drives.
    int camera = 0;
    /// Camera position in world units.
    qxCVector3d translation;
    /// Camera rotation in degrees: pitch, heading, roll, by the convention of qxCVector3d::toAngles().
    qxCVector3d rotation;
    /// Field of view in degrees, as qxCCamera::getFieldOfView().
    float fov = 60.0F;
    /// How far the camera trembles to each side, in degrees; 0 not at all.
    float shake = 0.0F;
    qxMovieCameraMode cameraMode = qxMovieCameraFree;
    qxMovieFrameMode frameMode = qxMovieFrameLinear;
    qxMovieFadeMode fadeMode = qxMovieFadeNone;
    qxCColour fadeColour{0, 0, 0, 255};
    bool keyframe = false;
    /// Name of the node that the camera looks at in target mode.
    qxCName targetName;
    /// 1 the picture alone, 0 the fade colour alone; written by the engine, never by the toolkit.
    float fadeLevel = 1.0F;
    /// Name of an animation that starts when playback reaches the frame; empty for none.
    char animTrigger[ANIM_TRIGGER_LENGTH + 1] = {};
    /// Ease into this keyframe and out of it, 0 to 1: values of qxEaseCurve(), 0.5 straight.
    float easeIn = 0.5F;
    float easeOut = 0.5F;

    /// An empty frame: no keyframe, no trigger, the values above.
    qxCMovieFrame();
    /// A copy of every field. It counts as unchanged, and no movie watches it.
    qxCMovieFrame(const qxCMovieFrame& other);
    /// Copies every field. The frame then counts as unchanged; a movie that watches it hears of it and goes
    /// on watching.
    qxCMovieFrame& operator=(const qxCMovieFrame& other);
    virtual ~qxCMovieFrame();

    void setCamera(int index);
    void setTranslation(const qxCVector3d& worldUnits);
    void setRotation(const qxCVector3d& degrees);
    void setFov(float degrees);
    void setShake(float degrees);
    void setCameraMode(qxMovieCameraMode mode);
    void setFrameMode(qxMovieFrameMode mode);
    void setFadeMode(qxMovieFadeMode mode);
    void setFadeColour(const qxCColour& colour);
    const qxCColour& getFadeColour() const;
    void setKeyframe(bool isKeyframe);
    void setTargetName(const qxCName& nodeName);
    /// Null counts as empty.
    void setAnimTrigger(const char* animation);
    /// Held to 0..1; what is not a number is ignored.
    void setEaseIn(float value);
    void setEaseOut(float value);

    /// Whether a setter has given this frame another value since it was made, copied from another, or last
    /// asked.
    bool hasChanged();

    /// Tell `watcher` of changes; null tells nobody. It must outlive the frame or take itself off before.
    void watch(qxCMovieFrameWatcher* watcher, int place);

private:
    template <class Value> void change(Value& field, const Value& value);
    void reportChange(bool keyframeMark);

    bool m_bChanged = false;
    int m_nPlace = 0;
    qxCMovieFrameWatcher* m_pWatcher = nullptr;
};
