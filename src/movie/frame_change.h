#pragma once

#include "engine/qx_movie.h"
#include "movie/movie_undo_store.h"

#include <functional>

/// A frame of a movie as it is before a change, for the history. Valid until frames are inserted or removed.
class CFrameChange {
public:
    /// Remember frame `index`, which the movie has.
    CFrameChange(qxCMovie& movie, int index);

    int index() const { return m_nIndex; }
    /// The change is done: put the frame as it was into the history where the engine reports a change and the
    /// frame is now a keyframe. True when it went in. To be asked once for a change.
    bool record(qxCMovie& movie, CMovieUndoStore& store) const;

private:
    int m_nIndex;
    qxCMovieFrame m_before;
};

/// What of a change goes into the history.
enum class Recording { RECORDED, UNRECORDED };

/// Let `edit` change the movie's current frame through its setters, and record the change where it counts.
/// False, and nothing happens, when there is no current frame. Tweens nothing.
bool editCurrentFrame(qxCMovie& movie, CMovieUndoStore& store, Recording recording,
                      const std::function<void(qxCMovieFrame&)>& edit);

/// The frame at the range start; null in a movie without frames.
qxCMovieFrame* currentFrame(qxCMovie& movie);
