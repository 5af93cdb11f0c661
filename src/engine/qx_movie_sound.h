#pragma once

#include "engine/qx_api.h"

#include <string>

/// One entry of a movie's soundtrack, owned by the movie.
class QX_API qxCMovieSound {
    std::string m_strName;

public:
    /// Sound file name as it was added; never null, owned by the entry.
    const char* const name;
    /// Seconds from the start of the movie; 0 until the soundtrack is laid out.
    float start = 0.0F;
    /// Seconds; 0 until the soundtrack is laid out, and for a sound that cannot be measured.
    float length = 0.0F;

    /// Keeps a copy of `fileName`; null counts as empty.
    explicit qxCMovieSound(const char* fileName);
    ~qxCMovieSound();
    qxCMovieSound(const qxCMovieSound&) = delete;
    qxCMovieSound& operator=(const qxCMovieSound&) = delete;
};
