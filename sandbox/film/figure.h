#pragma once

#include "engine/qx_vector3d.h"

#include <QString>

/// What an animation of the scene moves.
enum class FigureKind { MILL, BIRDS };

/// A thing that stands in the scene and that a film can set going by the name of its animation: a mill whose
/// sails turn, a flock that rises and settles again. Each runs once and then stands as before.
struct FilmFigure {
    QString animation; ///< its name, as a frame's trigger names it
    FigureKind kind = FigureKind::MILL;
    qxCVector3d position; ///< world units; the ground under it counts, not its height
    float size = 10.0F;   ///< world units, the mill's height or how far the flock spreads
};

/// Seconds that the animation of such a figure takes.
double animationLength(FigureKind kind);
