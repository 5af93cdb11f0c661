#include "movie/frame_change.h"

CFrameChange::CFrameChange(qxCMovie& movie, int index) : m_nIndex(index), m_before(*movie.getFrame(index)) {}

bool CFrameChange::record(qxCMovie& movie, CMovieUndoStore& store) const {
    qxCMovieFrame* const frame = movie.getFrame(m_nIndex);
    if (frame == nullptr || !frame->hasChanged() || !frame->keyframe) {
        return false;
    }
    store.push(MovieUndoKind::FRAME_CHANGED, m_nIndex, m_before);
    return true;
}

bool editCurrentFrame(qxCMovie& movie, CMovieUndoStore& store, Recording recording,
                      const std::function<void(qxCMovieFrame&)>& edit) {
    qxCMovieFrame* const frame = currentFrame(movie);
    if (frame == nullptr) {
        return false;
    }
    if (recording == Recording::UNRECORDED) {
        edit(*frame);
        frame->hasChanged(); // or the next change, even one that changes nothing, would seem to be this one
        return true;
    }
    const CFrameChange change(movie, movie.getRangeStart());
    edit(*frame);
    change.record(movie, store);
    return true;
}

qxCMovieFrame* currentFrame(qxCMovie& movie) {
    return movie.getNumFrames() > 0 ? movie.getFrame(movie.getRangeStart()) : nullptr;
}
