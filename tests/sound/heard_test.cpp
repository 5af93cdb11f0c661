// Sounds as they come out of the device, sample by sample.
#include "sound/reference_downsample.h"
#include "sound/sound_fixture.h"

#include <cmath>

namespace {

using Heard = SoundFixture;
using Samples = std::vector<std::int16_t>;
using wave::operator+;

constexpr unsigned RATE = 22050;

/// What both loudspeakers play of a sound, silence behind it: one channel goes to both.
Samples onBoth(const Samples& samples, unsigned channels, std::size_t frames) {
    Samples both;
    for (std::size_t i = 0; i < samples.size() && both.size() < frames * 2; i += channels) {
        both.push_back(samples[i]);
        both.push_back(samples[i + channels - 1]);
    }
    both.resize(frames * 2);
    return both;
}

TEST_F(Heard, WhatWentInComesOut) {
    for (const unsigned channels : {1U, 2U}) {
        for (const auto& [rate, factor] : {std::pair(8000U, 0U), {32000U, 1U}, {44100U, 2U}, {96000U, 4U}}) {
            listenAt(static_cast<int>(rate / std::max(factor, 1U)));
            const Samples in = wave::noise(4800, rate + channels);
            CSound* sound = load("a.wav", wave::file(wave::format(channels, rate, 16), wave::bytesOf(in)));
            ASSERT_TRUE(sound != nullptr && sound->play(1.0F));
            const Samples played = factor == 0 ? in : referenceDownsample(in, channels, factor);
            EXPECT_EQ(hear(5000), onBoth(played, channels, 5000)) << rate << " Hz, channels: " << channels;
            EXPECT_TRUE(sound->isFinished());
        }
    }
}

TEST_F(Heard, EightBits) {
    for (const unsigned factor : {1U, 2U}) {
        listenAt(RATE);
        wave::Bytes data;
        Samples expected;
        for (unsigned i = 0; i < 1000; ++i) {
            data.insert(data.end(), factor, static_cast<BYTE>(i * 7));
            expected.push_back(static_cast<std::int16_t>((data.back() - 128) * 256));
        }
        CSound* sound = load("a.wav", wave::file(wave::format(1, factor * RATE, 8), data));
        ASSERT_TRUE(sound->play(1.0F));
        EXPECT_EQ(hear(1100), onBoth(expected, 1, 1100)) << "reduced by " << factor;
    }
}

TEST_F(Heard, Volume) {
    listenAt(RATE);
    const Samples in = wave::noise(4000, 9);
    CSound* sound = load("a.wav", wave::file(wave::format(2, RATE, 16), wave::bytesOf(in)));
    const float refused = std::nanf("");
    for (const auto& [volume, gain] : {std::pair(0.5F, std::pow(10.0, -2.5)),
                                       {0.0F, 1.0e-5},
                                       {1.0F, 1.0},
                                       {1.5F, 1.0},
                                       {-0.5F, 1.0},
                                       {1.0e30F, 1.0},
                                       {refused, 1.0}}) {
        ASSERT_TRUE(sound->play(volume));
        const Samples heard = hear(2100);
        for (std::size_t i = 0; i < in.size(); ++i) {
            ASSERT_NEAR(heard[i], in[i] * gain, gain == 1.0 ? 0.0 : 1.0) << "volume " << volume;
        }
    }
}

TEST_F(Heard, PlayStartsAgainAndStopRewinds) {
    listenAt(RATE);
    const Samples in = wave::noise(4000, 10);
    CSound* sound = load("a.wav", wave::file(wave::format(2, RATE, 16), wave::bytesOf(in)));
    for (const bool stopped : {false, true}) {
        ASSERT_TRUE(sound->play(1.0F));
        EXPECT_EQ(hear(500), onBoth(in, 2, 500)) << "from the beginning";
        EXPECT_FALSE(sound->isFinished());
        if (stopped) {
            g_soundManager.stopAll();
        }
        EXPECT_EQ(sound->isFinished(), stopped);
    }
    EXPECT_EQ(hear(100), Samples(200, 0));
}

} // namespace
