#pragma once

#include "engine/qx_api.h"

#include <random>

/// A pseudo-random generator: the 32-bit Mersenne Twister (MT19937, Matsumoto and Nishimura 1998), whose
/// sequence the C++ standard fixes for every platform. A value is the upper 24 bits of one output as a
/// fraction of 2^24 - 1, so both ends of a range can come up and every fraction is exact in a float.
class QX_API qxCRandom {
public:
    /// The generator's standard seed, 5489.
    qxCRandom();

    /// Start the sequence that belongs to `seed`; equal seeds give equal sequences.
    void setSeed(int seed);

    /// Uniform from 0.0 to `max`, both included.
    float get(float max);

    /// Uniform from `min` to `max`, both included.
    float get(float min, float max);

private:
    float fraction();

    std::mt19937 m_engine;
};
