#define AL_ALEXT_PROTOTYPES
#include "sound/sound_fixture.h"

#include "platform/openal/device_opener.h"

#include <AL/al.h>
#include <AL/alext.h>

#include <cmath>

CLoopbackSound::~CLoopbackSound() {
    g_soundManager.release();
    setDeviceOpener(defaultDeviceOpener());
    CEngineDirectories::setDirectories({});
}

void CLoopbackSound::useLoopback(int rate) {
    g_soundManager.release();
    const auto open = [this] { return m_pLoopback = alcLoopbackOpenDeviceSOFT(nullptr); };
    setDeviceOpener({open,
                     {ALC_FREQUENCY, rate, ALC_FORMAT_CHANNELS_SOFT, ALC_STEREO_SOFT, ALC_FORMAT_TYPE_SOFT,
                      ALC_FLOAT_SOFT, ALC_HRTF_SOFT, ALC_FALSE, ALC_OUTPUT_LIMITER_SOFT, ALC_FALSE}});
}

void CLoopbackSound::listenAt(int rate) {
    useLoopback(rate);
    ASSERT_EQ(g_soundManager.create(), 0);
}

CSound* CLoopbackSound::load(const char* name, const wave::Bytes& bytes) const {
    m_directory.write(name, wave::textOf(bytes));
    return g_soundManager.loadSound(qxCName(name), 0);
}

std::vector<std::int16_t> CLoopbackSound::hear(std::size_t frames) const {
    std::vector<float> heard(frames * 2);
    alcRenderSamplesSOFT(m_pLoopback, heard.data(), static_cast<ALCsizei>(frames));
    std::vector<std::int16_t> samples;
    samples.reserve(heard.size());
    for (const float sample : heard) {
        samples.push_back(static_cast<std::int16_t>(std::lround(sample * 32768.0F)));
    }
    return samples;
}
