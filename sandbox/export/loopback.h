#pragma once

#include <AL/alc.h>

#include <cstdint>
#include <span>
#include <vector>

/// A sound device that nobody hears: what it would play is asked for. While it lives the sound calls of this
/// thread go to it; those of others, and of this thread later, to the device that they went to before.
class CLoopback {
public:
    /// Stereo at `rate` samples a second.
    explicit CLoopback(int rate);
    ~CLoopback();
    CLoopback(const CLoopback&) = delete;
    CLoopback& operator=(const CLoopback&) = delete;

    bool isReady() const { return m_pContext != nullptr; }
    /// Play a sound of two channels from its beginning, in place of the one before. Only while isReady();
    /// false when the device does not take it.
    bool play(std::span<const std::int16_t> stereo, int rate);
    /// What is heard next, as long as `heard` has room for pairs of samples.
    void hear(std::span<std::int16_t> heard);

private:
    ALCdevice* m_pDevice = nullptr;
    ALCcontext* m_pContext = nullptr;
    unsigned m_nSource = 0;
    unsigned m_nBuffer = 0;
};
