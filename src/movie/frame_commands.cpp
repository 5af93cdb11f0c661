#include "movie/frame_commands.h"

#include "engine/qx_movie.h"
#include "movie/movie_undo_store.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace {

/// Frames of the movie that the range covers; empty for first > last.
struct CoveredFrames {
    int first = 0;
    int last = -1;
};

CoveredFrames coveredFrames(const qxCMovie& movie) {
    return {std::max(movie.getRangeStart(), 0), std::min(movie.getRangeEnd(), movie.getNumFrames() - 1)};
}

/// A frame of the range before a removal: where it stood, which it was, and what it held.
struct RemovalCandidate {
    int index;
    const qxCMovieFrame* frame;
    qxCMovieFrame copy;
};

std::vector<RemovalCandidate> removalCandidates(qxCMovie& movie) {
    const CoveredFrames covered = coveredFrames(movie);
    std::vector<RemovalCandidate> candidates;
    candidates.reserve(static_cast<std::size_t>(std::max(covered.last - covered.first + 1, 0)));
    for (int index = covered.first; index <= covered.last; ++index) {
        if (const qxCMovieFrame* const frame = movie.getFrame(index)) {
            candidates.push_back({index, frame, *frame});
        }
    }
    return candidates;
}

/// Drop from the candidates what the movie still has: frames that the engine kept stand, in their order,
/// where the first of the candidates stood. A removed frame's address is not looked behind, only compared.
void dropKept(std::vector<RemovalCandidate>& candidates, qxCMovie& movie, int framesBefore) {
    const int removed = std::max(framesBefore - movie.getNumFrames(), 0);
    int kept = static_cast<int>(candidates.size()) - removed;
    int place = candidates.empty() ? 0 : candidates.front().index;
    std::erase_if(candidates, [&](const RemovalCandidate& candidate) {
        if (kept <= 0 || movie.getFrame(place) != candidate.frame) {
            return false;
        }
        --kept;
        ++place;
        return true;
    });
}

/// Insert a copy of `frame`, which the movie adopts. True when the movie has grown by it.
bool insertCopy(qxCMovie& movie, int index, const qxCMovieFrame& frame) {
    const int before = movie.getNumFrames();
    movie.insertFrame(index, std::make_unique<qxCMovieFrame>(frame).release());
    return movie.getNumFrames() > before;
}

void collapseRange(qxCMovie& movie) {
    movie.setRangeEnd(movie.getRangeStart());
}

void takeBack(qxCMovie& movie, const MovieUndoRecord& record) {
    switch (record.kind) {
    case MovieUndoKind::FRAME_CHANGED:
        // In its place: exchanging it could leave two frames where an engine refuses to delete the only one.
        if (qxCMovieFrame* const frame = movie.getFrame(record.frameIndex)) {
            *frame = record.frame;
        }
        break;
    case MovieUndoKind::FRAME_INSERTED:
        movie.deleteFrame(record.frameIndex);
        break;
    case MovieUndoKind::FRAME_DELETED:
        insertCopy(movie, record.frameIndex, record.frame);
        break;
    }
}

} // namespace

void insertFrame(qxCMovie& movie, CMovieUndoStore& store) {
    const int before = movie.getNumFrames();
    const int index = movie.getRangeStart();
    movie.insertFrame(index, nullptr);
    if (movie.getNumFrames() > before) {
        // The range start may have moved along or not; the frame stands where it was asked for.
        store.pushInserted(std::clamp(index, 0, before));
    }
    movie.updateTweening();
}

void deleteFrames(qxCMovie& movie, CMovieUndoStore& store) {
    const int before = movie.getNumFrames();
    std::vector<RemovalCandidate> removed = removalCandidates(movie);
    movie.deleteRange();
    dropKept(removed, movie, before);
    for (auto one = removed.rbegin(); one != removed.rend(); ++one) {
        store.push(MovieUndoKind::FRAME_DELETED, one->index, one->copy);
    }
    collapseRange(movie);
    movie.updateTweening();
}

void copyFrames(qxCMovie& movie) {
    movie.copy();
    collapseRange(movie);
    movie.updateTweening();
}

void cutFrames(qxCMovie& movie) {
    movie.cut();
    collapseRange(movie);
    movie.updateTweening();
}

void pasteFrames(qxCMovie& movie) {
    movie.paste(movie.getRangeStart());
    collapseRange(movie);
    movie.updateTweening();
}

void addKeyframe(qxCMovie& movie, CMovieUndoStore& store) {
    const int count = movie.getNumFrames();
    const qxCMovieFrame* const last = count > 0 ? movie.getFrame(count - 1) : nullptr;
    if (last == nullptr) {
        return;
    }
    if (insertCopy(movie, count, *last)) {
        store.pushInserted(count);
        movie.setRangeSingleFrame(movie.getNumFrames() - 1);
    }
    movie.updateTweening();
}

void markKeyframes(qxCMovie& movie, KeyframeMark mark) {
    const CoveredFrames covered = coveredFrames(movie);
    for (int index = covered.first; index <= covered.last; ++index) {
        if (qxCMovieFrame* const frame = movie.getFrame(index)) {
            frame->setKeyframe(mark == KeyframeMark::SET);
            frame->hasChanged(); // or the next change of the frame would seem to be this one
        }
    }
    movie.updateTweening();
}

void undoFrameCommand(qxCMovie& movie, CMovieUndoStore& store) {
    if (!store.isEmpty()) {
        takeBack(movie, store.newest());
        store.dropNewest();
    }
    movie.updateTweening();
}
