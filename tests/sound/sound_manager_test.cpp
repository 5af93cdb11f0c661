#include "sound/sound_manager.h"

#include "sound/sound_fixture.h"

#include <cstdlib>

#include <cstdlib>

namespace {

/// Before OpenAL is first used: whatever sound this machine has, these tests have none of their own.
const int NO_DRIVERS = setenv("ALSOFT_DRIVERS", "none of them", 1);

using SoundManager = SoundFixture;

constexpr unsigned RATE = 22050;

wave::Bytes tone(unsigned rate, std::size_t dataBytes) {
    return wave::file(wave::format(2, rate, 16), wave::bytesOf(wave::noise(dataBytes / 2, 1)));
}

TEST_F(SoundManager, WithoutASoundDeviceThereIsQuiet) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(g_soundManager.create(), -1);
    EXPECT_EQ(g_soundManager.device(), nullptr);
    EXPECT_EQ(load("a.wav", tone(RATE, 400)), nullptr);
    g_soundManager.update();
    g_soundManager.stopAll();
    g_soundManager.release();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(std::getenv("ALSOFT_LOGLEVEL"), nullptr);
    useLoopback(RATE);
    EXPECT_EQ(g_soundManager.create(), 0) << "tried again";
}

TEST_F(SoundManager, OpeningAgainReleasesWhatWasLoaded) {
    for (int opening = 1; opening <= 3; ++opening) {
        listenAt(RATE);
        EXPECT_EQ(g_soundManager.loadedSounds().getCount(), 0);
        ASSERT_TRUE(load("a.wav", tone(RATE, 2000))->hasBuffer());
    }
}

TEST_F(SoundManager, WhatIsNotPlayedStaysSilentInTheList) {
    listenAt(RATE);
    const wave::Bytes data(600, 1);
    wave::Bytes noAlign = wave::format(2, 44100, 16);
    noAlign[12] = 0;
    wave::Bytes floating = wave::extensibleFormat(2, RATE, 16);
    floating[24] = 3;
    const wave::Bytes files[] = {
        {},
        wave::Bytes(100, 'x'),
        wave::file(wave::format(2, RATE, 16), {}),
        wave::file(wave::format(2, 44100, 24), data),
        wave::file(wave::format(6, RATE, 16), data),
        wave::file(wave::format(0, 44100, 16), data),
        wave::file(wave::format(2, 50, 16), data),
        wave::file(wave::format(2, RATE, 16, 0x11), data),
        wave::file(noAlign, data),
        wave::file(floating, data),
        wave::file(wave::Bytes(14, 1), data),
    };
    int count = 0;
    for (const wave::Bytes& bytes : files) {
        CSound* sound = load("a.wav", bytes);
        ASSERT_NE(sound, nullptr) << "file " << count;
        EXPECT_FALSE(sound->hasBuffer() || sound->play(1.0F)) << "file " << count;
        sound->stop();
        EXPECT_TRUE(sound->isFinished());
        EXPECT_EQ(g_soundManager.loadedSounds().getCount(), ++count);
    }
    EXPECT_TRUE(load("b.wav", wave::file(wave::extensibleFormat(2, RATE, 16), data))->hasBuffer());
}

TEST(GrowArray, ClosesGapsAndIgnoresWhatIsOutside) {
    CGrowArray<int> array;
    for (const int value : {1, 2, 3}) {
        array.append(value);
    }
    for (const int index : {3, -1, 1}) {
        array.removeAt(index);
    }
    EXPECT_EQ(std::vector<int>(array.begin(), array.end()), (std::vector<int>{1, 3}));
}

} // namespace
