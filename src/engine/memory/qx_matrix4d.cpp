#include "engine/qx_matrix4d.h"

#include <cmath>
#include <numbers>

namespace {

using Rows = std::array<std::array<float, 4>, 4>;

constexpr Rows IDENTITY = {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};

} // namespace

qxCMatrix4d::qxCMatrix4d() : m_rows(IDENTITY) {}

void qxCMatrix4d::translation(const qxCVector3d& offset) {
    m_rows = IDENTITY;
    m_rows[0][3] = offset.x;
    m_rows[1][3] = offset.y;
    m_rows[2][3] = offset.z;
}

void qxCMatrix4d::rotationY(float angle) {
    const float radians = angle * std::numbers::pi_v<float> / 180.0F;
    const float sine = std::sin(radians);
    const float cosine = std::cos(radians);
    m_rows = IDENTITY;
    m_rows[0][0] = cosine;
    m_rows[0][2] = sine;
    m_rows[2][0] = -sine;
    m_rows[2][2] = cosine;
}

void qxCMatrix4d::scaling(const qxCVector3d& factors) {
    m_rows = IDENTITY;
    m_rows[0][0] = factors.x;
    m_rows[1][1] = factors.y;
    m_rows[2][2] = factors.z;
}

qxCVector3d qxCMatrix4d::operator*(const qxCVector3d& point) const {
    const auto apply = [&point](const std::array<float, 4>& row) {
        return row[0] * point.x + row[1] * point.y + row[2] * point.z + row[3];
    };
    return {apply(m_rows[0]), apply(m_rows[1]), apply(m_rows[2])};
}

qxCMatrix4d operator*(const qxCMatrix4d& a, const qxCMatrix4d& b) {
    qxCMatrix4d product;
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t column = 0; column < 4; ++column) {
            float sum = 0.0F;
            for (std::size_t i = 0; i < 4; ++i) {
                sum += a.m_rows[row][i] * b.m_rows[i][column];
            }
            product.m_rows[row][column] = sum;
        }
    }
    return product;
}
