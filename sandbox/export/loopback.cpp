#define AL_ALEXT_PROTOTYPES
#include "sandbox/export/loopback.h"

#include <AL/al.h>
#include <AL/alext.h>

#include <algorithm>
#include <cmath>

CLoopback::CLoopback(int rate) : m_pDevice(alcLoopbackOpenDeviceSOFT(nullptr)) {
    if (m_pDevice == nullptr) {
        return;
    }
    // Floats are neither dithered nor held down, so the samples of a file come out as they went in.
    const ALCint wanted[] = {ALC_FREQUENCY,
                             rate,
                             ALC_FORMAT_CHANNELS_SOFT,
                             ALC_STEREO_SOFT,
                             ALC_FORMAT_TYPE_SOFT,
                             ALC_FLOAT_SOFT,
                             ALC_HRTF_SOFT,
                             ALC_FALSE,
                             ALC_OUTPUT_LIMITER_SOFT,
                             ALC_FALSE,
                             0};
    m_pContext = alcCreateContext(m_pDevice, wanted);
    if (m_pContext != nullptr) {
        alcSetThreadContext(m_pContext);
        alGenSources(1, &m_nSource);
        alGenBuffers(1, &m_nBuffer);
        alSourcei(m_nSource, AL_SOURCE_RELATIVE, AL_TRUE);
    }
}

CLoopback::~CLoopback() {
    if (m_pContext != nullptr) {
        alDeleteSources(1, &m_nSource);
        alDeleteBuffers(1, &m_nBuffer);
        alcSetThreadContext(nullptr);
        alcDestroyContext(m_pContext);
    }
    if (m_pDevice != nullptr) {
        alcCloseDevice(m_pDevice);
    }
}

bool CLoopback::play(std::span<const std::int16_t> stereo, int rate) {
    alGetError();
    alSourceStop(m_nSource);
    alSourcei(m_nSource, AL_BUFFER, 0); // a buffer in use takes no data
    alBufferData(m_nBuffer, AL_FORMAT_STEREO16, stereo.data(), static_cast<ALsizei>(stereo.size_bytes()),
                 rate);
    alSourcei(m_nSource, AL_BUFFER, static_cast<ALint>(m_nBuffer));
    alSourcePlay(m_nSource);
    return alGetError() == AL_NO_ERROR;
}

void CLoopback::hear(std::span<std::int16_t> heard) {
    constexpr std::size_t PAIRS = 4096; // asked for at a time
    constexpr float FULL = 32768.0F;
    std::vector<float> samples(PAIRS * 2);
    while (!heard.empty()) {
        const std::size_t count = std::min(heard.size(), samples.size());
        alcRenderSamplesSOFT(m_pDevice, samples.data(), static_cast<ALCsizei>(count / 2));
        std::ranges::transform(std::span(samples).first(count), heard.begin(), [](float sample) {
            return static_cast<std::int16_t>(std::clamp(std::round(sample * FULL), -FULL, FULL - 1.0F));
        });
        heard = heard.subspan(count);
    }
}
