// Sounds as they come out of the device, sample by sample.
#include "sound/reference_downsample.h"
#include "sound/sound_fixture.h"

#include <cmath>

namespace {

using Samples = std::vector<std::int16_t>;

using wave::operator+;

constexpr unsigned RATE = 22050;

using Heard = SoundFixture;

/// What both loudspeakers play of a sound: one channel goes to both.
Samples onBoth(const Samples& samples, unsigned channels) {
    Samples both;
    for (std::size_t i = 0; i < samples.size(); i += channels) {
        both.push_back(samples[i]);
        both.push_back(samples[i + channels - 1]);
    }
    return both;
}

Samples firstFrames(Samples samples, std::size_t frames) {
    samples.resize(frames * 2);
    return samples;
}

TEST_F(Heard, WhatWentInComesOut) {
    for (const unsigned channels : {1U, 2U}) {
        for (const auto& [rate, factor] :
             {std::pair(8000U, 0U), {22050U, 0U}, {32000U, 1U}, {44100U, 2U}, {96000U, 4U}}) {
            listenAt(static_cast<int>(rate / std::max(factor, 1U)));
            const Samples in = wave::noise(4800, rate + channels);
            CSound* sound = load("a.wav", wave::file(wave::format(channels, rate, 16), wave::bytesOf(in)));
            ASSERT_TRUE(sound != nullptr && sound->play(1.0F));
            const Samples played = factor == 0 ? in : referenceDownsample(in, channels, factor);
            EXPECT_EQ(m_loopback->hearSamples(5000), firstFrames(onBoth(played, channels), 5000))
                << rate << " Hz, channels: " << channels;
            EXPECT_TRUE(sound->isFinished());
        }
    }
}

TEST_F(Heard, EightBits) {
    for (const unsigned channels : {1U, 2U}) {
        listenAt(RATE);
        wave::Bytes data(2000);
        Samples expected;
        for (std::size_t i = 0; i < data.size(); ++i) {
            data[i] = static_cast<BYTE>(i * 7);
            expected.push_back(static_cast<std::int16_t>((data[i] - 128) * 256));
        }
        CSound* sound = load("a.wav", wave::file(wave::format(channels, RATE, 8), data));
        ASSERT_TRUE(sound->play(1.0F));
        EXPECT_EQ(m_loopback->hearSamples(2100), firstFrames(onBoth(expected, channels), 2100));
    }
}

/// A tone of 8 bits above the rate comes out as the tone, with silence around it.
TEST_F(Heard, EightBitsReduced) {
    listenAt(RATE);
    wave::Bytes data(8000, 128);
    for (std::size_t i = 2000; i < 6000; ++i) {
        data[i] = static_cast<BYTE>(128 + std::lround(100 * std::sin(static_cast<double>(i) * 0.05)));
    }
    CSound* sound = load("a.wav", wave::file(wave::format(1, 2 * RATE, 8), data));
    ASSERT_TRUE(sound->play(1.0F));
    const Samples heard = m_loopback->hearSamples(4000);
    for (std::size_t i = 0; i < 4000; ++i) {
        const bool silent = i < 1000 || i >= 3000;
        const double time = static_cast<double>(2 * i) + 0.5;
        const double expected = silent ? 0.0 : 25600 * std::sin(time * 0.05);
        ASSERT_NEAR(heard[2 * i], expected, silent ? 0 : 300) << "frame " << i;
    }
}

TEST_F(Heard, Volume) {
    listenAt(RATE);
    const Samples in = wave::noise(4000, 9);
    CSound* sound = load("a.wav", wave::file(wave::format(2, RATE, 16), wave::bytesOf(in)));
    for (const auto& [volume, gain] : {std::pair(1.0F, 1.0), {0.5F, std::pow(10.0, -2.5)}, {0.0F, 1.0e-5}}) {
        ASSERT_TRUE(sound->play(volume));
        const Samples heard = m_loopback->hearSamples(2100);
        for (std::size_t i = 0; i < in.size(); ++i) {
            ASSERT_NEAR(heard[i], in[i] * gain, gain == 1.0 ? 0.0 : 1.0) << "volume " << volume;
        }
    }
    for (const float refused : {1.5F, -0.5F, 1.0e30F, std::nanf("")}) {
        sound->play(1.0F);
        m_loopback->hear(2100);
        EXPECT_TRUE(sound->play(refused));
        EXPECT_EQ(m_loopback->hearSamples(2100), firstFrames(in, 2100)) << "volume " << refused;
    }
}

TEST_F(Heard, PlayStartsAgainAndStopRewinds) {
    listenAt(RATE);
    const Samples in = wave::noise(4000, 10);
    CSound* sound = load("a.wav", wave::file(wave::format(2, RATE, 16), wave::bytesOf(in)));
    sound->play(1.0F);
    EXPECT_EQ(m_loopback->hearSamples(500), firstFrames(in, 500));
    EXPECT_FALSE(sound->isFinished());
    ASSERT_TRUE(sound->play(1.0F));
    EXPECT_EQ(m_loopback->hearSamples(700), firstFrames(in, 700)) << "from the beginning";
    sound->stop();
    EXPECT_TRUE(sound->isFinished());
    EXPECT_EQ(m_loopback->hearSamples(100), Samples(200, 0));
    sound->play(1.0F);
    EXPECT_EQ(m_loopback->hearSamples(300), firstFrames(in, 300)) << "rewound";
    g_soundManager.stopAll();
    EXPECT_EQ(m_loopback->hearSamples(100), Samples(200, 0));
}

TEST_F(Heard, ThreeAtOnceAddUp) {
    listenAt(RATE);
    Samples sum(4000, 0);
    for (int which = 0; which < 3; ++which) {
        Samples in = wave::noise(4000, static_cast<unsigned>(20 + which));
        for (std::size_t i = 0; i < in.size(); ++i) {
            in[i] = static_cast<std::int16_t>(in[i] / 4);
            sum[i] = static_cast<std::int16_t>(sum[i] + in[i]);
        }
        const std::string name = "three" + std::to_string(which) + ".wav";
        CSound* sound = load(name.c_str(), wave::file(wave::format(2, RATE, 16), wave::bytesOf(in)));
        ASSERT_TRUE(sound->play(1.0F));
    }
    EXPECT_EQ(m_loopback->hearSamples(2100), firstFrames(sum, 2100));
}

/// The interface below the sounds, where they do not reach: pausing, wrapped locks, refusals.
TEST_F(Heard, BufferKeepsItsPromises) {
    listenAt(RATE);
    const Samples in = wave::noise(400, 30);
    wave::Bytes formatBytes = wave::format(2, RATE, 16) + wave::word16(0);
    DSBUFFERDESC desc{};
    desc.dwSize = sizeof desc;
    desc.dwBufferBytes = 800;
    desc.lpwfxFormat = reinterpret_cast<WAVEFORMATEX*>(formatBytes.data());
    IDirectSoundBuffer* buffer = nullptr;
    ASSERT_EQ(g_soundManager.device()->CreateSoundBuffer(&desc, &buffer, nullptr), S_OK);
    void* parts[2] = {};
    DWORD sizes[2] = {};
    ASSERT_EQ(buffer->Lock(600, 800, &parts[0], &sizes[0], &parts[1], &sizes[1], 0), S_OK);
    ASSERT_EQ(sizes[0], 200U);
    ASSERT_EQ(sizes[1], 600U);
    const wave::Bytes bytes = wave::bytesOf(in);
    std::copy(bytes.begin() + 600, bytes.end(), static_cast<BYTE*>(parts[0]));
    std::copy(bytes.begin(), bytes.begin() + 600, static_cast<BYTE*>(parts[1]));
    ASSERT_EQ(buffer->Unlock(parts[0], sizes[0], parts[1], sizes[1]), S_OK);
    EXPECT_EQ(buffer->Lock(800, 4, &parts[0], &sizes[0], nullptr, nullptr, 0), DSERR_INVALIDPARAM);
    EXPECT_EQ(buffer->SetVolume(-100), DSERR_CONTROLUNAVAIL);

    EXPECT_EQ(buffer->Play(0, 0, 0), S_OK);
    EXPECT_EQ(m_loopback->hearSamples(50), firstFrames(in, 50));
    EXPECT_EQ(buffer->Play(0, 0, 0), S_OK) << "goes on";
    EXPECT_EQ(buffer->Stop(), S_OK);
    EXPECT_EQ(m_loopback->hearSamples(10), Samples(20, 0));
    EXPECT_EQ(buffer->Play(0, 0, 0), S_OK);
    EXPECT_EQ(m_loopback->hearSamples(50), Samples(in.begin() + 100, in.begin() + 200))
        << "from where it was";
    EXPECT_EQ(buffer->SetCurrentPosition(800), DSERR_INVALIDPARAM);
    EXPECT_EQ(buffer->SetCurrentPosition(720), S_OK);
    EXPECT_EQ(m_loopback->hearSamples(20), Samples(in.end() - 40, in.end()));
    void* other = &desc;
    EXPECT_EQ(buffer->QueryInterface(IID_IDirectSound3DListener, &other), E_NOINTERFACE);
    EXPECT_EQ(other, nullptr);
    EXPECT_EQ(buffer->AddRef(), 2U);
    EXPECT_EQ(buffer->Release(), 1U);
    EXPECT_EQ(buffer->Release(), 0U);
}

} // namespace
