#define AL_ALEXT_PROTOTYPES
#include "sound/loopback.h"

#include <AL/al.h>
#include <AL/alext.h>

#include <cmath>

CLoopback::CLoopback(int rate) {
    const auto open = [this] { return m_pDevice = alcLoopbackOpenDeviceSOFT(nullptr); };
    setDeviceOpener({open,
                     {ALC_FREQUENCY, rate, ALC_FORMAT_CHANNELS_SOFT, ALC_STEREO_SOFT, ALC_FORMAT_TYPE_SOFT,
                      ALC_FLOAT_SOFT, ALC_HRTF_SOFT, ALC_FALSE, ALC_OUTPUT_LIMITER_SOFT, ALC_FALSE}});
}

CLoopback::~CLoopback() {
    setDeviceOpener(defaultDeviceOpener());
}

std::vector<float> CLoopback::hear(std::size_t frames) const {
    std::vector<float> samples(frames * 2);
    alcRenderSamplesSOFT(m_pDevice, samples.data(), static_cast<ALCsizei>(frames));
    return samples;
}

std::vector<std::int16_t> CLoopback::hearSamples(std::size_t frames) const {
    std::vector<std::int16_t> samples;
    for (const float sample : hear(frames)) {
        samples.push_back(static_cast<std::int16_t>(std::lround(sample * 32768.0F)));
    }
    return samples;
}
