#pragma once

#include "engine/qx_colour.h"
#include "engine/qx_random.h"

#include <algorithm>

/// The pattern of a texture definition, one texel at a time and as it is told on paper.
class CSurfaceRecipe {
public:
    CSurfaceRecipe(const qxCColour& tint1, const qxCColour& tint2, float blend, float variation) {
        qxCRandom tints;
        qxCRandom blends;
        tints.setSeed(123);
        blends.setSeed(345);
        for (int i = 0; i <= 8; ++i) {
            for (int j = 0; j <= 8; ++j) {
                m_tints[i][j] = interpolate(tint1, tint2, tints.get(1.0F));
                m_fBlends[i][j] = std::clamp(blend + blends.get(-variation, variation), 0.0F, 1.0F);
            }
        }
    }

    qxCColour tintAt(int x, int y) const {
        const int i = x / 32;
        const int j = y / 32;
        const float u = static_cast<float>(y % 32) / 32;
        return interpolate(interpolate(m_tints[i][j], m_tints[i][j + 1], u),
                           interpolate(m_tints[i + 1][j], m_tints[i + 1][j + 1], u),
                           static_cast<float>(x % 32) / 32);
    }

    float blendAt(int x, int y) const {
        const int i = x / 32;
        const int j = y / 32;
        const float u = static_cast<float>(y % 32) / 32;
        const float left = m_fBlends[i][j] + u * (m_fBlends[i][j + 1] - m_fBlends[i][j]);
        const float right = m_fBlends[i + 1][j] + u * (m_fBlends[i + 1][j + 1] - m_fBlends[i + 1][j]);
        return left + static_cast<float>(x % 32) / 32 * (right - left);
    }

private:
    qxCColour m_tints[9][9];
    float m_fBlends[9][9] = {};
};
