#include "sound/sound_manager.h"

#include "engine/qx_file.h"
#include "sound/sound_fixture.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace {

/// Before OpenAL is first used: whatever sound this machine has, these tests have none of their own.
const int G_NO_DRIVERS = setenv("ALSOFT_DRIVERS", "none of them", 1);

using SoundManager = SoundFixture;

constexpr unsigned RATE = 22050;

wave::Bytes tone(unsigned rate, std::size_t dataBytes) {
    return wave::file(wave::format(2, rate, 16), wave::bytesOf(wave::noise(dataBytes / 2, 1)));
}

TEST_F(SoundManager, WithoutASoundDeviceThereIsQuiet) {
    write("a.wav", tone(RATE, 400));
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    EXPECT_EQ(g_soundManager.create(), -1);
    EXPECT_EQ(g_soundManager.device(), nullptr);
    EXPECT_EQ(g_soundManager.loadSound(qxCName("a.wav"), 0), nullptr);
    g_soundManager.update();
    g_soundManager.stopAll();
    g_soundManager.release();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(g_soundManager.loadedSounds().getCount(), 0);
    m_loopback.emplace(RATE);
    EXPECT_EQ(g_soundManager.create(), 0) << "tried again";
}

TEST_F(SoundManager, CreateKeepsTheConnection) {
    listenAt(RATE);
    const CSound* sound = load("a.wav", tone(RATE, 400));
    IDirectSound* const device = g_soundManager.device();
    EXPECT_EQ(g_soundManager.create(), 0);
    EXPECT_EQ(g_soundManager.device(), device);
    ASSERT_EQ(g_soundManager.loadedSounds().getCount(), 1);
    EXPECT_EQ(g_soundManager.loadedSounds()[0], sound);
}

TEST_F(SoundManager, ListenerStandsAtTheOriginLookingAhead) {
    listenAt(RATE);
    DS3DLISTENER listener{};
    listener.dwSize = sizeof listener;
    ASSERT_NE(g_soundManager.listener(), nullptr);
    ASSERT_EQ(g_soundManager.listener()->GetAllParameters(&listener), S_OK);
    EXPECT_EQ(listener.vPosition.x, 0.0F);
    EXPECT_EQ(listener.vOrientFront.z, 1.0F);
    EXPECT_EQ(listener.vOrientTop.y, 1.0F);
    EXPECT_EQ(listener.flDopplerFactor, 1.0F);
    listener.dwSize = 0;
    EXPECT_EQ(g_soundManager.listener()->GetAllParameters(&listener), DSERR_INVALIDPARAM);
}

TEST_F(SoundManager, SoundTellsWhatItWasMadeFrom) {
    listenAt(RATE);
    const CSound* sound = load("Tone.wav", tone(44100, 400));
    EXPECT_STREQ(sound->name(), "Tone.wav");
    EXPECT_EQ(sound->description().dwBufferBytes, 200U);
    EXPECT_EQ(sound->description().dwFlags, 0x00060090U);
    EXPECT_EQ(sound->description().lpwfxFormat, nullptr);
    const CSound* plain = g_soundManager.loadSound(qxCName("tone.wav"), DSBCAPS_CTRLVOLUME);
    EXPECT_EQ(plain->description().dwFlags, DSBCAPS_CTRLVOLUME);
    EXPECT_EQ(g_soundManager.loadSound(qxCName("missing.wav"), 0), nullptr);
    EXPECT_EQ(g_soundManager.loadedSounds().getCount(), 2);
}

TEST_F(SoundManager, WhatIsNoSoundStaysSilentInTheList) {
    listenAt(RATE);
    wave::Bytes noAlign = wave::format(2, 44100, 16);
    noAlign[12] = 0;
    wave::Bytes exotic = wave::extensibleFormat(2, RATE, 16);
    exotic[24] = 3; // floating point
    const wave::Bytes files[] = {
        {},
        wave::Bytes(100, 'x'),
        wave::file(wave::format(2, RATE, 16), {}),
        wave::file(wave::format(2, 44100, 24), wave::Bytes(600, 1)),
        wave::file(wave::format(6, RATE, 16), wave::Bytes(600, 1)),
        wave::file(wave::format(0, 44100, 16), wave::Bytes(600, 1)),
        wave::file(wave::format(2, 0, 16), wave::Bytes(600, 1)),
        wave::file(wave::format(2, 50, 16), wave::Bytes(600, 1)),
        wave::file(wave::format(2, RATE, 16, 0x11), wave::Bytes(600, 1)),
        wave::file(noAlign, wave::Bytes(600, 1)),
        wave::file(exotic, wave::Bytes(600, 1)),
        wave::file(wave::Bytes(14, 1), wave::Bytes(600, 1)),
    };
    int count = 0;
    for (const wave::Bytes& bytes : files) {
        CSound* sound = load("a.wav", bytes);
        ASSERT_NE(sound, nullptr) << "file " << count;
        EXPECT_FALSE(sound->hasBuffer()) << "file " << count;
        EXPECT_FALSE(sound->play(1.0F));
        sound->stop();
        EXPECT_TRUE(sound->isFinished());
        EXPECT_EQ(g_soundManager.loadedSounds().getCount(), ++count);
    }
    EXPECT_TRUE(
        load("b.wav", wave::file(wave::extensibleFormat(2, RATE, 16), wave::Bytes(600, 1)))->hasBuffer());
}

/// Open file handles and pages of memory of this process.
struct Usage {
    std::ptrdiff_t handles;
    long pages;
};

Usage usage() {
    const std::filesystem::directory_iterator handles("/proc/self/fd");
    long pages = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident;
    return {std::distance(begin(handles), end(handles)), resident};
}

#ifdef __SANITIZE_ADDRESS__
constexpr double PAGES_TO_SPARE = 1.0e6; // freed memory is kept aside there; its leak checker looks instead
#else
constexpr double PAGES_TO_SPARE = 64.0;
#endif

/// Twenty sounds on one connection: ten kept by the manager, ten let go at once.
void playTwenty(CLoopback& loopback) {
    ASSERT_EQ(g_soundManager.create(), 0);
    for (int i = 0; i < 10; ++i) {
        CSound* kept = g_soundManager.loadSound(qxCName("a.wav"), 0);
        ASSERT_TRUE(kept != nullptr && kept->play(1.0F));
        qxCFile file;
        ASSERT_TRUE(file.open("a.wav", qxFileModeRead));
        CSound sound(file, 0);
        ASSERT_TRUE(sound.play(1.0F));
        loopback.hear(8);
    }
    g_soundManager.release();
}

TEST_F(SoundManager, TenThousandRoundsCostNothing) {
    m_loopback.emplace(RATE);
    write("a.wav", tone(44100, 4000));
    for (int i = 0; i < 50; ++i) {
        playTwenty(*m_loopback);
    }
    const Usage before = usage();
    for (int i = 0; i < 10'000 / 20; ++i) {
        playTwenty(*m_loopback);
    }
    const Usage after = usage();
    EXPECT_EQ(after.handles, before.handles);
    EXPECT_NEAR(static_cast<double>(after.pages), static_cast<double>(before.pages), PAGES_TO_SPARE);
}

/// OpenAL Soft has a fixed number of sources for a device; more sounds than that follow one another.
TEST_F(SoundManager, SourcesAreGivenBack) {
    listenAt(RATE);
    write("a.wav", tone(RATE, 400));
    for (int i = 0; i < 1000; ++i) {
        qxCFile file;
        ASSERT_TRUE(file.open("a.wav", qxFileModeRead));
        CSound sound(file, 0);
        ASSERT_TRUE(sound.play(1.0F)) << "sound " << i;
    }
}

TEST(GrowArray, DoublesAndClosesGaps) {
    int values[5] = {};
    CGrowArray<int*> array;
    EXPECT_EQ(array.getCapacity(), 0);
    for (const int capacity : {1, 2, 4, 4, 8}) {
        array.append(&values[array.getCount()]);
        EXPECT_EQ(array.getCapacity(), capacity);
    }
    array.removeAt(5);
    array.removeAt(-1);
    array.removeAt(1);
    ASSERT_EQ(array.getCount(), 4);
    const int expected[] = {0, 2, 3, 4};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(array[i], &values[expected[i]]);
    }
}

} // namespace
