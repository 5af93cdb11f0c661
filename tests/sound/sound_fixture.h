#pragma once

#include "engine/memory/engine_directories.h"
#include "engine/qx_name.h"
#include "engine/temp_directory.h"
#include "sound/loopback.h"
#include "sound/sound.h"
#include "sound/sound_manager.h"
#include "sound/wave_bytes.h"

#include <gtest/gtest.h>

#include <optional>

/// A folder that the engine finds its files in, and g_soundManager playing into a loopback device.
class SoundFixture : public testing::Test {
protected:
    SoundFixture() { CEngineDirectories::setDirectories({m_directory.path()}); }
    ~SoundFixture() override {
        g_soundManager.release();
        CEngineDirectories::setDirectories({});
    }

    void listenAt(int rate) {
        g_soundManager.release();
        m_loopback.emplace(rate);
        ASSERT_EQ(g_soundManager.create(), 0);
    }

    CSound* load(const char* name, const wave::Bytes& bytes) const {
        m_directory.write(name, wave::textOf(bytes));
        return g_soundManager.loadSound(qxCName(name), 0);
    }

    CTempDirectory m_directory;
    std::optional<CLoopback> m_loopback;
};
