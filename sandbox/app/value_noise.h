#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

/// Values in 0 to 1 that vary softly over the plane and repeat every PERIOD cells, the same at every run.
class CValueNoise {
public:
    static constexpr int PERIOD = 256;

    /// Features about `size` cells wide; a divisor of PERIOD.
    explicit CValueNoise(int size);

    /// A period of values along a row that is not negative.
    const float* row(int z) const {
        return m_values.data() + static_cast<std::ptrdiff_t>(z % PERIOD) * PERIOD;
    }

private:
    std::vector<float> m_values;
};

/// 0 below `from`, 1 above `to`, an S-shaped way between them. `from` is less than `to`.
inline float smoothstep(float from, float to, float value) {
    const float t = std::clamp((value - from) / (to - from), 0.0F, 1.0F);
    return t * t * (3.0F - 2.0F * t);
}
