#pragma once

#include "platform/windows_types.h"

#include <cstddef>
#include <span>

/// Reduce interleaved signed 16-bit samples in place: `outFrames` frames, each the sum of `factor` frames,
/// every term multiplied by the float 0.99999988 / factor, summed in double and truncated toward zero. Bytes
/// behind the last frame written stay as they were. `samples` holds at least outFrames * factor frames of
/// `channels` samples, at any alignment; channels and factor are at least 1.
void downsample16(std::span<BYTE> samples, std::size_t outFrames, unsigned channels, unsigned factor);

/// The same for unsigned 8-bit samples, with the mean rounded to the nearest, so that silence stays silence.
void downsample8(std::span<BYTE> samples, std::size_t outFrames, unsigned channels, unsigned factor);
