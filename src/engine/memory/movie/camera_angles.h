#pragma once

#include "engine/qx_api.h"
#include "engine/qx_vector3d.h"

/// The direction, of length 1, in which a node of this rotation looks (degrees; the roll does not matter):
/// what qxCVector3d::toAngles() takes apart.
QX_API qxCVector3d directionOf(const qxCVector3d& rotation);
