#pragma once

#include "engine/qx_camera.h"
#include "sandbox/core/view_camera.h"

/// Between the cameras of a film and the camera of the 3D view.

/// Make `view` see what a camera at `position` with this rotation and field of view sees, both in degrees.
void lookThrough(CViewCamera& view, const qxCVector3d& position, const qxCVector3d& rotation,
                 float fieldOfView, double farDistance);

/// Give `camera` the place of `view`. Its rotation is left to the bit unless `view` was turned from what
/// lookThrough made of it; the roll always is.
void moveTo(qxCCamera& camera, const CViewCamera& view);
