#pragma once

#include "engine/memory/engine_directories.h"
#include "engine/qx_name.h"
#include "sound/sound.h"
#include "sound/sound_manager.h"
#include "sound/wave_bytes.h"
#include "support/temp_directory.h"

#include <AL/alc.h>
#include <gtest/gtest.h>

/// A folder that the engine finds its files in. On demand g_soundManager plays into a device without
/// loudspeakers, from which the test takes the samples: two channels, neither limited nor dithered.
class CLoopbackSound {
public:
    CLoopbackSound() { CEngineDirectories::setDirectories({m_directory.path()}); }
    ~CLoopbackSound();
    CLoopbackSound(const CLoopbackSound&) = delete;
    CLoopbackSound& operator=(const CLoopbackSound&) = delete;

    /// From now on the sound device is that one, `rate` frames a second.
    void useLoopback(int rate);
    /// The same, and g_soundManager opens it.
    void listenAt(int rate);
    CSound* load(const char* name, const wave::Bytes& bytes) const;

    /// What is heard during the next `frames` frames, both channels interleaved.
    std::vector<std::int16_t> hear(std::size_t frames) const;

    CTempDirectory m_directory;

private:
    ALCdevice* m_pLoopback = nullptr;
};

class SoundFixture : public testing::Test, protected CLoopbackSound {};
