#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

/// Ratios between pieces of work measured in the same run, the only figures that hold from machine to
/// machine.
namespace bench {

/// Median seconds of one call of each piece of work. Every round calls each piece once, in turn, so that a
/// drift of the machine meets all of them; one round beforehand warms up.
inline std::vector<double> medianSeconds(const std::vector<std::function<void()>>& works, int rounds) {
    std::vector<std::vector<double>> times(works.size());
    for (int round = -1; round < rounds; ++round) {
        for (std::size_t i = 0; i < works.size(); ++i) {
            const auto start = std::chrono::steady_clock::now();
            works[i]();
            const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - start;
            if (round >= 0) {
                times[i].push_back(spent.count());
            }
        }
    }
    std::vector<double> medians;
    for (std::vector<double>& series : times) {
        const auto middle = series.begin() + static_cast<std::ptrdiff_t>(series.size() / 2);
        std::nth_element(series.begin(), middle, series.end());
        medians.push_back(*middle);
    }
    return medians;
}

/// One line: what was measured against what, the ratio, and the goal it is held to.
inline void printRatio(const char* name, double seconds, double floorSeconds, double goal) {
    std::printf("%s: %.3fx (goal <= %.3g)  %.3f us / %.3f us\n", name, seconds / floorSeconds, goal,
                seconds * 1e6, floorSeconds * 1e6);
}

} // namespace bench
