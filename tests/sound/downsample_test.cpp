#include "sound/downsample.h"

#include "sound/reference_downsample.h"
#include "sound/wave_bytes.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <cstring>

namespace {

using testing::ElementsAre;
using Samples = std::vector<std::int16_t>;

void expectAsReference(const Samples& in, unsigned channels, unsigned factor) {
    wave::Bytes bytes = wave::bytesOf(in);
    const std::size_t frames = in.size() / channels / factor;
    downsample16(bytes, frames, channels, factor);
    wave::Bytes expected = wave::bytesOf(in);
    const wave::Bytes reduced = wave::bytesOf(referenceDownsample(in, channels, factor));
    std::copy(reduced.begin(), reduced.end(), expected.begin());
    ASSERT_TRUE(bytes == expected) << "channels: " << channels << ", factor: " << factor;
}

/// Random samples, four million unless VESK_DOWNSAMPLE_SAMPLES asks for more. Behind the last frame they
/// stay.
TEST(Downsample, EqualsTheReferenceOnNoise) {
    constexpr std::size_t ROUND = 100'003; // no multiple of a block, a factor or a channel count
    const char* wanted = std::getenv("VESK_DOWNSAMPLE_SAMPLES");
    const std::uint64_t rounds = (wanted != nullptr ? std::strtoull(wanted, nullptr, 10) : 4'000'000) / ROUND;
    for (std::uint64_t i = 0; i < std::max<std::uint64_t>(rounds, 48); ++i) {
        const auto factor = static_cast<unsigned>(i % 16) + 1;
        expectAsReference(wave::noise(ROUND, static_cast<unsigned>(i)), static_cast<unsigned>(i / 16 % 3 + 1),
                          factor);
    }
}

/// The result depends on the sum of the samples alone; these frames bring forth every sum there is.
TEST(Downsample, EqualsTheReferenceOnEverySum) {
    for (const unsigned factor : {1U, 2U, 3U, 4U, 8U}) {
        Samples in;
        for (int sum = -32768 * static_cast<int>(factor); sum <= 32767 * static_cast<int>(factor); ++sum) {
            for (int left = static_cast<int>(factor), rest = sum; left > 0; --left) {
                in.push_back(static_cast<std::int16_t>(rest / left));
                rest -= in.back();
            }
        }
        expectAsReference(in, 1, factor);
    }
}

TEST(Downsample, BytesAreAveragedAndSilenceStays) {
    wave::Bytes bytes = {128, 128, 128, 128, 0, 255, 1, 255, 255, 0, 254, 1, 7};
    downsample8(bytes, 3, 2, 2);
    EXPECT_THAT(bytes, ElementsAre(128, 128, 1, 255, 255, 1, 1, 255, 255, 0, 254, 1, 7));
}

} // namespace
