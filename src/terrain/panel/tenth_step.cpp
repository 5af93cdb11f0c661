#include "terrain/panel/tenth_step.h"

#include <algorithm>
#include <cmath>

float tenthStep(float value, int delta) {
    constexpr double STEP = 0.1F; // the single-precision tenth
    const double stepped = static_cast<double>(value) + (delta < 0 ? STEP : -STEP);
    const double tenths = std::trunc(std::abs(stepped) * 10.0 + 0.5);
    const double rounded = std::copysign(tenths * STEP, stepped);
    return static_cast<float>(std::clamp(rounded, 0.0, 1.0) + 0.0); // never minus zero
}
