#pragma once

#include "engine/qx_movie_frame.h"

#include <list>

class qxCMovie;

enum class MovieUndoKind { FRAME_CHANGED = 0, FRAME_INSERTED = 1, FRAME_DELETED = 2 };

/// One change of a movie.
struct MovieUndoRecord {
    MovieUndoKind kind = MovieUndoKind::FRAME_CHANGED;
    int frameIndex = 0;  ///< in the movie as it was then
    qxCMovieFrame frame; ///< changed: as it was before; deleted: as it was; inserted: means nothing
};

/// The movie editor's history, oldest record to newest; a full one drops its oldest. Every operation but
/// clear() and openFor() takes constant time, and no record is copied after its push: frames own memory of
/// their own, so each record has its place for itself and gives it back.
class CMovieUndoStore {
public:
    /// Most records kept.
    static constexpr int CAPACITY = 100'000;

    /// Append a copy of the frame; a full store drops its oldest record first.
    void push(MovieUndoKind kind, int frameIndex, const qxCMovieFrame& frame);
    /// Append an insertion.
    void pushInserted(int frameIndex);
    /// Take the newest record off. Only for a store that is not empty.
    MovieUndoRecord pop();
    /// The newest record; only for a store that is not empty. Valid until the store changes.
    const MovieUndoRecord& newest() const { return m_records.back(); }
    /// As pop(), for whoever has read it with newest().
    void dropNewest() { m_records.pop_back(); }

    bool isEmpty() const { return m_records.empty(); }
    int getCount() const { return static_cast<int>(m_records.size()); }
    /// Used share of the capacity, 0 to 100.
    float fillPercent() const;

    /// Drop every record.
    void clear() { m_records.clear(); }
    /// An editor opens over this movie: what was recorded of another one is dropped. Movies are told apart by
    /// their address.
    void openFor(const qxCMovie* movie);

private:
    std::list<MovieUndoRecord> m_records;
    const qxCMovie* m_pMovie = nullptr;
};

/// The one history of the module: it outlives the panel.
extern CMovieUndoStore g_movieUndo;
