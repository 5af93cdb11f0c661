#pragma once

#include <cstdint>
#include <iterator>
#include <random>

/// The chance in a session, the same for the same seed on every machine.
class CEventDice {
public:
    explicit CEventDice(std::uint64_t seed) : m_engine(seed) {}

    /// 0 to `count` - 1; `count` is positive.
    int below(int count) { return static_cast<int>(m_engine() % static_cast<std::uint64_t>(count)); }
    /// `low` to `high`, both included.
    int between(int low, int high) { return low + below(high - low + 1); }
    /// True once in `count` times.
    bool oneIn(int count) { return below(count) == 0; }

    /// One of the values of a range that is not empty.
    template <class Range> auto& of(Range& values) {
        return *std::next(std::begin(values), below(static_cast<int>(std::size(values))));
    }

private:
    std::mt19937_64 m_engine;
};
