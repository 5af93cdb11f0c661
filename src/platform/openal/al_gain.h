#pragma once

#include "platform/direct_sound.h"

#include <cmath>

constexpr bool isVolume(LONG volume) {
    return volume >= DSBVOLUME_MIN && volume <= DSBVOLUME_MAX;
}

/// The factor that a volume in hundredths of a decibel puts on amplitudes.
inline float gainOf(LONG volume) {
    return static_cast<float>(std::pow(10.0, volume / 2000.0));
}
