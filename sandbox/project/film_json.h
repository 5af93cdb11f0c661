#pragma once

#include "sandbox/project/json_reader.h"
#include "sandbox/project/project_film.h"

#include <QJsonObject>

/// The film as an object of the project file. docs/project-format.md describes it.

/// Newest form of the object that this program reads and the one it writes.
inline constexpr int FILM_VERSION = 2;

/// Read the object. What is missing, of the wrong kind, out of range or newer fails the reader by name.
ProjectFilm readFilm(CJsonReader reader);

/// The object for `film`.
QJsonObject filmText(const ProjectFilm& film);
