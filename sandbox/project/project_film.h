#pragma once

#include "engine/qx_movie_frame.h"
#include "sandbox/film/figure.h"

#include <QString>
#include <vector>

/// A point on the ground with a name, which a camera can be aimed at.
struct FilmPlace {
    QString name;
    qxCVector3d position; ///< world units
};

/// A frame that the file says something about, and its index.
struct FilmFrame {
    int index = 0;
    qxCMovieFrame frame;
};

/// A film in plain values. `frames` are in ascending order: all keyframes, and of the other frames those
/// that do not follow from them and from the frame without a key before them; captureFilm says how.
struct ProjectFilm {
    int frameCount = 1;     ///< 1 or more
    float stepRate = 25.0F; ///< frames a second, positive
    bool showsPath = false;
    bool showsHeights = false;
    bool hidesFades = false;
    std::vector<QString> cameras; ///< their names
    std::vector<FilmPlace> places;
    std::vector<FilmFigure> figures;
    std::vector<QString> sounds; ///< file names of the soundtrack, in order
    std::vector<FilmFrame> frames;
};
