#pragma once

#include "engine/qx_api.h"
#include "engine/qx_colour.h"
#include "engine/qx_vector3d.h"

/// How a movie stands at one moment.
struct MoviePose {
    int camera = 0;           ///< index of the child camera that shows it
    qxCVector3d position;     ///< world units
    qxCVector3d rotation;     ///< degrees; already turned to the target, the trembling not in it
    float fieldOfView = 0.0F; ///< degrees
    float shake = 0.0F;       ///< degrees to each side
    float fadeLevel = 1.0F;   ///< 1 the picture alone, 0 the fade colour alone
    qxCColour fadeColour;

    friend bool operator==(const MoviePose&, const MoviePose&) = default;
};

/// The rotation of a trembling camera: `rotation` with pitch and heading off by at most `shake` degrees, a
/// smooth function of the movie's time in seconds, the same in every run.
QX_API qxCVector3d shaken(const qxCVector3d& rotation, float shake, double seconds);
