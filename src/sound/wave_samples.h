#pragma once

#include "sound/wave_image.h"

#include <optional>

/// What a sound buffer is made from: the format of the samples, and where they lie in the image.
struct WaveSamples {
    CWaveFormat format;
    std::span<BYTE> bytes;
};

/// Finds the samples of a WAV file held in memory and, when they were recorded above `highestRate`, reduces
/// them in place by the whole part of rate / highestRate. Samples that are no PCM of 8 or 16 bits stay as
/// they were recorded. Nothing when the image is no WAV file; which formats are played is for the sound
/// device to say.
std::optional<WaveSamples> findWaveSamples(std::span<BYTE> image, DWORD highestRate);
