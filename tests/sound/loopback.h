#pragma once

#include "platform/openal/device_opener.h"

#include <cstdint>
#include <vector>

/// Lets the sound device play into a device without loudspeakers, from which a test takes the samples. While
/// it lives, the sound device opens this one; the samples come out at `rate` on two channels, neither
/// limited nor dithered.
class CLoopback {
public:
    explicit CLoopback(int rate);
    ~CLoopback();
    CLoopback(const CLoopback&) = delete;
    CLoopback& operator=(const CLoopback&) = delete;

    /// What is heard during the next `frames` frames, both channels interleaved, full scale at 1.0.
    std::vector<float> hear(std::size_t frames) const;
    /// The same as 16-bit samples, to the nearest.
    std::vector<std::int16_t> hearSamples(std::size_t frames) const;

private:
    ALCdevice* m_pDevice = nullptr;
};
