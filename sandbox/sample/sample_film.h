#pragma once

#include "sandbox/core/height_field.h"
#include "sandbox/project/project_film.h"

/// The film of the sample landscape: twenty seconds, over the fields and down the valley to the lake, by a
/// crane and, after a cut, a glider that keeps the lake in sight.
ProjectFilm sampleFilm(const HeightField& ground);
