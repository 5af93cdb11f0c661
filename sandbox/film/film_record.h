#pragma once

#include "sandbox/film/film.h"
#include "sandbox/project/project_film.h"

#include <memory>

/// Between a film in a scene and its plain values.

/// The film as plain values, tweened. Of the frames without a key those are left out that follow from what is
/// there: what the keyframes give them, no trigger, and of the rest the values of the frame without a key
/// before them (of the first one those of an empty frame).
ProjectFilm captureFilm(CFilm& film);

/// The film in `scene`, which outlives it.
std::unique_ptr<CFilm> buildFilm(const ProjectFilm& record, CMemoryScene& scene);

/// The frames of a record in a movie of as many frames.
void putFrames(const std::vector<FilmFrame>& frames, CMemoryMovie& movie);

std::vector<FilmPlace> placesOf(const CFilm& film);

/// Every field that a person sets.
bool isSameFrame(const qxCMovieFrame& a, const qxCMovieFrame& b);
