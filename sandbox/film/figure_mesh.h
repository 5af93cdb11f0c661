#pragma once

#include "engine/memory/movie/memory_movie.h"
#include "sandbox/film/figure.h"

#include <QVector3D>

#include <optional>
#include <vector>

/// Three of them in turn are a triangle, which is seen from both sides.
struct FigureVertex {
    QVector3D place; ///< world units
    QVector3D normal;
    QVector3D colour; ///< red, green, blue, 0 to 1
};

/// Seconds of the film since its last frame, up to `seconds`, that starts the figure's animation; nothing
/// when there is none, or the animation is over by then. The film's time alone decides, so that scrubbing,
/// playing and exporting show the same.
std::optional<double> animationTime(CMemoryMovie& movie, const FilmFigure& figure, double seconds);

/// The figure on a ground of this height, `time` seconds into its animation, or at rest.
std::vector<FigureVertex> figureMesh(const FilmFigure& figure, double ground, std::optional<double> time);
