#pragma once

#include "movie/frame_change.h"

#include <vector>

class qxCCamera;

/// Takes the host's moves of a camera into the current frame of a movie, which becomes a keyframe. Belongs to
/// a panel; what waits for the end of a move goes with it.
class CCameraCapture {
public:
    /// The host has moved this camera: copy it into the current frame, if that drives it. Tweens nothing.
    /// False when the frame is as it was.
    bool moved(qxCMovie& movie, qxCCamera* camera);

    /// The move is over: record every frame that it changed, as it was before the first report, and tween.
    /// Without a report before, the current frame is recorded as it is. False, and nothing happens, without a
    /// current frame.
    bool finished(qxCMovie& movie, CMovieUndoStore& store);

    /// Record what an unfinished move has changed. To be called before frames are inserted, removed or
    /// exchanged: indices mean other frames afterwards.
    void settle(qxCMovie& movie, CMovieUndoStore& store);

private:
    bool isWaiting(int index) const;

    std::vector<CFrameChange> m_waiting;
};
