#pragma once

#include "engine/qx_movie.h"

class CWnd;

/// Starts and stops a movie, and shows on the panel's play buttons whether it plays. Belongs to a panel,
/// which the engine knows by a number of its own.
class CPlayControl {
public:
    CPlayControl();

    /// Let the movie play from its current state. The engine's calls go to the two callbacks.
    void start(const CWnd& panel, qxCMovie& movie, qxCAnimator::Callback onMessage,
               qxCMovie::Callback onEvent);
    /// Put the movie into the stopped state, whatever it was in. No callback comes and no sound is heard any
    /// more.
    void stop(const CWnd& panel, qxCMovie& movie);
    /// The panel ends: what was started is stopped, without looking at the panel's buttons.
    void end(qxCMovie* movie);

    /// Whether a message of the engine's is about the movie that was started here.
    bool isOurs(std::uint32_t callbackData) const { return callbackData == m_nIdentity; }
    /// Whether a start is under way: an engine may report the end of a movie from inside it.
    bool isStarting() const { return m_bStarting; }
    /// Take note of a frame that the engine reports. False for a repeat.
    bool isNewFrame(int frame);

private:
    void halt(qxCMovie& movie);
    void showState(const CWnd& panel) const;

    std::uint32_t m_nIdentity;
    bool m_bPlaying = false;
    bool m_bStarting = false;
    int m_nLastEventFrame = -1;
};
