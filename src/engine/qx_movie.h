#pragma once

#include "engine/qx_animator.h"
#include "engine/qx_camera.h"
#include "engine/qx_movie_frame.h"
#include "engine/qx_movie_sound.h"
#include "engine/qx_node.h"

#include <cstdint>

/// What a playing movie reports: a soundtrack entry is due, its name in the text; a frame is reached, its
/// index in the number.
enum qxMovieEvent { qxMovieSoundCue = 1, qxMovieFrameReached = 3 };

/// Display bits of a movie. Stopped: it does not play, an editor poses it and may change frames.
enum qxMovieFlag : std::uint32_t {
    qxMovieStopped = 1,
    qxMovieShowPath = 2,
    qxMovieShowHeights = 4,
    qxMovieNoFades = 8
};

/// A camera movie: frames in a row, a soundtrack, and the cameras that the frames drive. The host owns it; it
/// owns its frames, sounds and cameras. Frames count from 0, at getStepRate() frames a second. All calls and
/// both callbacks come on the host's user-interface thread. Pointers to frames, sounds and cameras are
/// borrowed: they hold until what they point to is removed. Nothing here fails loudly: an index that does not
/// exist is answered by null or ignored.
class QX_API qxCMovie : public qxCNode {
public:
    using Callback = void (*)(qxMovieEvent event, const char* text, int value);

    /// The player. Mode 0 stops it.
    qxCAnimator animator;
    /// Comes back as the data of each message of this movie's animator; its meaning is the editor's.
    std::uint32_t callbackData = 0;
    /// Bits of qxMovieFlag. Who changes them calls invalidateBoundingBox(true) afterwards.
    std::uint32_t flags = qxMovieStopped;

    /// The one callback of all movies; null for none. What raises an event asks for it anew each time, so
    /// that nothing arrives after it was set to null. Defined in the engine library, where a host's own
    /// engine can take its place.
    static void setCallback(Callback callback);
    static Callback getCallback();

    virtual int getNumFrames() const = 0;
    /// Null outside 0 to getNumFrames() - 1.
    virtual qxCMovieFrame* getFrame(int index) = 0;

    // The selection, both ends included. Its start is the current frame of an editor.
    virtual int getRangeStart() const = 0;
    virtual int getRangeEnd() const = 0;
    virtual void setRangeStart(int frame) = 0;
    virtual void setRangeEnd(int frame) = 0;
    virtual void setRangeSingleFrame(int frame) = 0;
    virtual bool isRangeSingleFrame() const = 0;
    virtual bool isInRange(int frame) const = 0;

    /// Insert a frame so that it gets this index, 0 to getNumFrames(); those from there on move up by one.
    /// `frame`, made with new, belongs to the movie from the call on, whatever comes of it; for null the
    /// movie makes one itself.
    virtual void insertFrame(int index, qxCMovieFrame* frame) = 0;
    virtual void deleteFrame(int index) = 0;
    virtual void deleteRange() = 0;
    /// Give the frame at `to` the values of the one at `from`, or insert a copy there, as the engine has it.
    virtual void duplicateFrame(int from, int to) = 0;
    virtual void swapFrames(int one, int other) = 0;
    /// Copy the frames of the selection to the movie's clipboard, in place of what it holds; cut() also
    /// removes them.
    virtual void copy() = 0;
    virtual void cut() = 0;
    /// Insert the clipboard's frames so that the first of them gets this index.
    virtual void paste(int index) = 0;

    /// Compute the frames between the keyframes anew after any of them changed.
    virtual void updateTweening() = 0;
    /// Frames a second.
    virtual float getStepRate() const = 0;
    /// Seconds from the start of the movie to the start of the frame.
    virtual float convertFrameToTime(int frame) const = 0;
    /// Pose the stopped movie as it is at that time, in seconds.
    virtual void updateManual(float seconds) = 0;
    /// Start playing. From then on the engine raises both callbacks, until the movie has played to its end or
    /// its animator is given mode 0.
    virtual void play() = 0;
    /// Let every animation trigger fire again when it is reached.
    virtual void resetAnimTriggers() = 0;

    /// Null outside the movie's cameras.
    virtual qxCCamera* getChildCamera(int index) = 0;
    /// From `point` towards the target of `frame`; the length means nothing.
    virtual qxCVector3d getTargetDirection(qxCMovieFrame* frame, const qxCVector3d& point) = 0;

    virtual int getSoundtrackSize() const = 0;
    /// Null outside 0 to getSoundtrackSize() - 1. The caller may write its start and length.
    virtual qxCMovieSound* getSound(int index) = 0;
    /// The entry that sounds during that frame, negative when none does.
    virtual int getSoundAtFrame(int frame) const = 0;
    virtual void clearSoundtrack() = 0;
    /// Append an entry; the movie keeps a copy of the name.
    virtual void addSound(const char* fileName) = 0;
};
