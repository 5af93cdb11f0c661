#pragma once

#include "sandbox/film/film.h"
#include "sandbox/project/project_film.h"

#include <vector>

/// All of a film that a person edits, as it was at some moment. What is shown of it is no edit.
struct FilmCopy {
    struct SoundTime {
        float start = 0.0F;  ///< seconds
        float length = 0.0F; ///< seconds

        friend bool operator==(const SoundTime&, const SoundTime&) = default;
    };

    ProjectFilm film;
    std::vector<SoundTime> soundTimes; ///< of `film.sounds`

    /// Memory that it takes.
    std::size_t bytes() const;
};

FilmCopy copyOf(CFilm& film);
/// Make the film what it was. Whoever holds the movie goes on holding it; one that looks through its cameras
/// looks through the person's again when one of them goes.
void putFilm(const FilmCopy& copy, CFilm& film);
/// To the bit; which frames are selected is no part of it.
bool areAlike(const FilmCopy& left, const FilmCopy& right);
