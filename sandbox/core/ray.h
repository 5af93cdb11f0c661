#pragma once

#include <array>

/// A half-line in world units; the direction need not have unit length.
struct Ray {
    std::array<double, 3> origin{};
    std::array<double, 3> direction{};
};
