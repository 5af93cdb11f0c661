#pragma once

#include "platform/wave_format.h"

#include <optional>
#include <span>

/// What a sound buffer is made from: the format of the samples, and where they lie in the image.
struct WaveSamples {
    WAVEFORMATEXTENSIBLE format;
    std::span<BYTE> bytes;
};

/// Finds the samples of a WAV file held in memory and, when they were recorded above `highestRate`, reduces
/// them in place by the whole part of rate / highestRate. Nothing when the image is no WAV file or its format
/// is not one of frames of 8- or 16-bit samples. The format tag and the number of channels are for the sound
/// device to judge.
std::optional<WaveSamples> findWaveSamples(std::span<BYTE> image, DWORD highestRate);
