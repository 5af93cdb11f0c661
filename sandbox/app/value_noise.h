#pragma once

#include <algorithm>
#include <vector>

/// Values in 0 to 1 that vary softly over the plane and repeat every PERIOD cells, the same at every run.
class CValueNoise {
public:
    static constexpr int PERIOD = 256;

    /// Features about `size` cells wide; a divisor of PERIOD.
    explicit CValueNoise(int size);

    /// Any cell that is not negative.
    float at(int x, int z) const {
        return m_values[static_cast<std::size_t>((z % PERIOD) * PERIOD + x % PERIOD)];
    }

private:
    std::vector<float> m_values;
};

/// 0 below `from`, 1 above `to`, an S-shaped way between them. `from` is less than `to`.
inline float smoothstep(float from, float to, float value) {
    const float t = std::clamp((value - from) / (to - from), 0.0F, 1.0F);
    return t * t * (3.0F - 2.0F * t);
}
