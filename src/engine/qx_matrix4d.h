#pragma once

#include "engine/qx_api.h"
#include "engine/qx_vector3d.h"

#include <array>

/// An affine transform of points, 4 x 4, column vectors: (a * b) applied to a point is a applied to
/// (b applied to the point). Constructed as the identity.
class QX_API qxCMatrix4d {
public:
    qxCMatrix4d();

    /// Make this matrix a translation by `offset`, in map units.
    void translation(const qxCVector3d& offset);

    /// Make this matrix a rotation about the vertical axis. `angle` is in degrees; a positive angle turns the
    /// z axis towards the x axis (counter-clockwise seen from above with x to the right and z downwards).
    void rotationY(float angle);

    /// Make this matrix a scaling by `factors` along each axis.
    void scaling(const qxCVector3d& factors);

    /// The transformed point.
    qxCVector3d operator*(const qxCVector3d& point) const;

    friend QX_API qxCMatrix4d operator*(const qxCMatrix4d& a, const qxCMatrix4d& b);

private:
    std::array<std::array<float, 4>, 4> m_rows; // m_rows[row][column]
};

QX_API qxCMatrix4d operator*(const qxCMatrix4d& a, const qxCMatrix4d& b);
