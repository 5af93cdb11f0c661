#include "sound/downsample.h"

#include "sound/reference_downsample.h"
#include "sound/wave_bytes.h"

#include <gmock/gmock.h>

#include <cstdlib>

namespace {

/// The samples behind the last frame stay as they were.
void expectAsReference(const std::vector<std::int16_t>& in, unsigned channels, unsigned factor) {
    std::vector<std::int16_t> expected = in;
    const std::size_t frames = in.size() / channels / factor;
    referenceDownsample(in.data(), expected.data(), frames, channels, factor);
    wave::Bytes bytes = wave::bytesOf(in);
    downsample16(bytes, frames, channels, factor);
    ASSERT_TRUE(bytes == wave::bytesOf(expected)) << "channels: " << channels << ", factor: " << factor;
}

/// Random samples, about five million unless VESK_DOWNSAMPLE_SAMPLES asks for more.
TEST(Downsample, EqualsTheReferenceOnNoise) {
    constexpr unsigned ROUND = 100'003; // no multiple of a block, a factor or a channel count
    const char* wanted = std::getenv("VESK_DOWNSAMPLE_SAMPLES");
    const unsigned long rounds = wanted != nullptr ? std::strtoul(wanted, nullptr, 10) / ROUND : 48;
    for (unsigned i = 0; i < rounds; ++i) {
        expectAsReference(wave::noise(ROUND, i), i / 16 % 3 + 1, i % 16 + 1);
    }
}

/// The result depends on the sum of the samples alone; these frames bring forth every sum there is.
TEST(Downsample, EqualsTheReferenceOnEverySum) {
    for (const int factor : {1, 2, 3, 4, 8}) {
        std::vector<std::int16_t> in;
        for (int sum = -32768 * factor; sum <= 32767 * factor; ++sum) {
            for (int left = factor, rest = sum; left > 0; rest -= in.back(), --left) {
                in.push_back(static_cast<std::int16_t>(rest / left));
            }
        }
        expectAsReference(in, 1, static_cast<unsigned>(factor));
    }
}

TEST(Downsample, BytesAreAveragedAndSilenceStays) {
    wave::Bytes bytes = {128, 128, 128, 128, 0, 255, 1, 255, 255, 0, 254, 1, 7};
    downsample8(bytes, 3, 2, 2);
    EXPECT_THAT(bytes, testing::ElementsAre(128, 128, 1, 255, 255, 1, 1, 255, 255, 0, 254, 1, 7));
}

} // namespace
