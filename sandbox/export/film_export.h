#pragma once

#include "engine/memory/memory_map.h"
#include "sandbox/film/film.h"
#include "sandbox/view/view_options.h"

#include <QSize>
#include <QStringList>
#include <functional>

/// A film as files: a picture of each frame, "frame-00000.png" and on, and "soundtrack.wav".

inline constexpr const char* FILM_SOUND_NAME = "soundtrack.wav";

/// What becomes of a film.
struct FilmExport {
    QString folder; ///< made where there is none; one with something in it is refused
    QSize size;     ///< of each picture, in pixels
    ViewOptions options;
};

/// What came of it.
struct FilmExported {
    QString error;          ///< a sentence for a person; empty when it went well or was called off
    QStringList silent;     ///< sounds that are not played, and are not in the mix
    bool calledOff = false; ///< nothing is left of it
};

/// Called after each of `all` files; false calls the rest off.
using ExportProgress = std::function<bool(int done, int all)>;

/// The name of a frame's picture.
QString pictureName(int frame);

/// Lay out the sounds of the film and write it. After a failure, or when it is called off, what was written
/// is removed. The film must not play. Throws std::bad_alloc.
FilmExported exportFilm(CMemoryMap& map, CFilm& film, const FilmExport& wanted,
                        const ExportProgress& progress);
