#pragma once

#include "engine/qx_api.h"

#include <cstdint>

/// What an animator does. The toolkit passes 0 whenever playback stops.
enum qxAnimatorMode { qxAnimatorStopped = 0, qxAnimatorPlaying = 1 };

/// What an animator reports: 0, it has played to its end.
enum qxAnimatorMessage { qxAnimatorEnded = 0 };

/// The player of something that runs in time, contained in it. What is class-wide is defined in the engine
/// library, where a host's own engine can take its place.
class QX_API qxCAnimator {
public:
    /// Called on the host's user-interface thread; for a movie's animator `data` is the movie's callbackData.
    using Callback = void (*)(qxAnimatorMessage message, std::uint32_t data);

    /// Seconds of a clock that runs on whether or not anything plays; never backwards.
    static float getTime();

    /// The one callback of all animators; null for none. What raises a message asks for it anew each time, so
    /// that nothing arrives after it was set to null.
    static void setCallback(Callback callback);
    static Callback getCallback();

    void setMode(qxAnimatorMode mode);
    qxAnimatorMode getMode() const;

private:
    qxAnimatorMode m_mode = qxAnimatorStopped;
};
