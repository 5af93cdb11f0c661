#include "movie/movie_undo_store.h"

CMovieUndoStore g_movieUndo;

void CMovieUndoStore::push(MovieUndoKind kind, int frameIndex, const qxCMovieFrame& frame) {
    if (getCount() == CAPACITY) {
        m_records.pop_front();
    }
    m_records.emplace_back(kind, frameIndex, frame);
}

void CMovieUndoStore::pushInserted(int frameIndex) {
    push(MovieUndoKind::FRAME_INSERTED, frameIndex, {});
}

MovieUndoRecord CMovieUndoStore::pop() {
    MovieUndoRecord record = m_records.back();
    m_records.pop_back();
    return record;
}

float CMovieUndoStore::fillPercent() const {
    return static_cast<float>(getCount()) * 100.0F / static_cast<float>(CAPACITY);
}

void CMovieUndoStore::openFor(const qxCMovie* movie) {
    if (movie != m_pMovie) {
        clear();
        m_pMovie = movie;
    }
}
