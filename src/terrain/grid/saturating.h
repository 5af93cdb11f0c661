#pragma once

#include <cstdint>
#include <limits>

/// Arithmetic on numbers that a host may give as it likes: what no int holds becomes the nearest one.

constexpr int saturate(std::int64_t value) {
    constexpr std::int64_t LOW = std::numeric_limits<int>::min();
    constexpr std::int64_t HIGH = std::numeric_limits<int>::max();
    return static_cast<int>(value < LOW ? LOW : value > HIGH ? HIGH : value);
}

/// a + b.
constexpr int addSaturating(int a, int b) {
    return saturate(std::int64_t{a} + b);
}

/// a - b.
constexpr int subtractSaturating(int a, int b) {
    return saturate(std::int64_t{a} - b);
}

/// Truncates toward zero; 0 for what is not a number.
constexpr int truncateSaturating(double value) {
    constexpr double LOW = std::numeric_limits<int>::min();
    constexpr double HIGH = std::numeric_limits<int>::max();
    if (value <= LOW) {
        return std::numeric_limits<int>::min();
    }
    if (value >= HIGH) {
        return std::numeric_limits<int>::max();
    }
    return value == value ? static_cast<int>(value) : 0;
}
