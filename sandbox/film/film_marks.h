#pragma once

#include "sandbox/core/height_field.h"
#include "sandbox/film/film.h"

#include <QString>
#include <QVector3D>
#include <array>
#include <cstdint>
#include <vector>

/// Red, green, blue, alpha.
using FilmColour = std::array<std::uint8_t, 4>;

struct FilmLine {
    QVector3D from;
    QVector3D to;
    FilmColour colour{};
};

struct FilmLabel {
    QVector3D place;
    QString text;
    FilmColour colour{};
};

/// What is drawn of a film into the landscape, in world units; the labels that matter most last.
struct FilmMarks {
    std::vector<FilmLine> lines;
    std::vector<FilmLabel> labels;
};

/// What changes only with the film or the ground: the path with its keyframes when the movie shows its path,
/// the heights when it shows those, and the places.
FilmMarks markFilm(CFilm& film, const HeightField& ground);

/// The camera where the film stands.
FilmMarks markCurrent(CFilm& film, const HeightField& ground);
