#pragma once

#include "engine/qx_node.h"

/// A camera. With rotation 0 it looks along the z axis with y upwards; its roll turns the picture about the
/// line of sight, a positive one turning the camera's right side down.
class QX_API qxCCamera : public qxCNode {
public:
    /// Angle from the lower to the upper edge of the picture, in degrees.
    virtual float getFieldOfView() const = 0;

    qxNodeType getNodeType() const override { return qxNodeCamera; }
};
