#include "controls/stepped_value.h"

#include <algorithm>
#include <cmath>

namespace {

/// The nearest whole number, halves away from zero; never minus zero.
double nearestWhole(double value) {
    return std::copysign(std::trunc(std::abs(value) + 0.5), value) + 0.0;
}

} // namespace

float steppedValue(float value, float step) {
    const double size = std::abs(static_cast<double>(step));
    const double stepped = static_cast<double>(value) + static_cast<double>(step);
    return static_cast<float>(size * nearestWhole(stepped / size));
}

float steppedShare(float value, int delta) {
    constexpr double TENTH = TENTH_STEP;
    const double stepped = static_cast<double>(value) + (delta < 0 ? TENTH : -TENTH);
    return static_cast<float>(std::clamp(nearestWhole(stepped * 10.0) * TENTH, 0.0, 1.0));
}
