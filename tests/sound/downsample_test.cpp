#include "sound/downsample.h"

#include "sound/reference_downsample.h"
#include "sound/wave_bytes.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <cstring>
#include <iostream>

namespace {

using testing::ElementsAre;

std::vector<std::int16_t> downsampled(const std::vector<std::int16_t>& in, unsigned channels,
                                      unsigned factor) {
    wave::Bytes bytes = wave::bytesOf(in);
    const std::uint64_t frames = in.size() / channels / factor;
    downsample16(bytes, frames, channels, factor);
    std::vector<std::int16_t> out(frames * channels);
    std::memcpy(out.data(), bytes.data(), out.size() * sizeof(std::int16_t));
    return out;
}

/// How many random samples the comparison runs over; VESK_DOWNSAMPLE_SAMPLES asks for more.
std::uint64_t samplesToCompare() {
    const char* wanted = std::getenv("VESK_DOWNSAMPLE_SAMPLES");
    return wanted != nullptr ? std::strtoull(wanted, nullptr, 10) : 4'000'000;
}

TEST(Downsample, EqualsTheReferenceOnNoise) {
    constexpr std::size_t ROUND = 100'003; // no multiple of a block, a factor or a channel count
    const std::uint64_t wanted = samplesToCompare();
    std::uint64_t compared = 0;
    for (unsigned seed = 1; compared < wanted; ++seed) {
        const std::vector<std::int16_t> in = wave::noise(ROUND, seed);
        for (unsigned factor = 1; factor <= 16; ++factor) {
            for (const unsigned channels : {1U, 2U, 3U}) {
                ASSERT_EQ(downsampled(in, channels, factor), referenceDownsample(in, channels, factor))
                    << "seed " << seed << ", factor " << factor << ", channels " << channels;
                compared += ROUND;
            }
        }
    }
    std::cout << compared << " samples compared, factors 1 to 16\n";
}

/// The result depends on the sum of the samples alone; these frames bring forth every sum there is.
TEST(Downsample, EqualsTheReferenceOnEverySum) {
    for (const unsigned factor : {1U, 2U, 3U, 4U, 8U}) {
        std::vector<std::int16_t> in;
        for (int base = -32768; base <= 32767; ++base) {
            for (unsigned raised = 0; raised < factor; ++raised) {
                for (unsigned term = 0; term < factor; ++term) {
                    in.push_back(static_cast<std::int16_t>(std::min(base + (term < raised ? 1 : 0), 32767)));
                }
            }
        }
        ASSERT_EQ(downsampled(in, 1, factor), referenceDownsample(in, 1, factor)) << "factor " << factor;
    }
}

TEST(Downsample, OneStepTowardZeroAtFactorOne) {
    EXPECT_THAT(downsampled({1000, -1000, 1, -1, 0, 32767, -32768}, 1, 1),
                ElementsAre(999, -999, 0, 0, 0, 32766, -32767));
}

TEST(Downsample, BytesBehindTheLastFrameStay) {
    wave::Bytes bytes = wave::bytesOf({10, 20, 30, 40, 50});
    downsample16(bytes, 2, 1, 2);
    EXPECT_EQ(bytes, wave::bytesOf({14, 34, 30, 40, 50}));
}

TEST(Downsample, BytesAreAveragedAndSilenceStays) {
    wave::Bytes bytes(12, 128);
    downsample8(bytes, 3, 2, 2);
    EXPECT_EQ(bytes, wave::Bytes(12, 128));
    bytes = {0, 255, 1, 255, 255, 0, 254, 1, 7};
    downsample8(bytes, 2, 2, 2);
    EXPECT_THAT(bytes, ElementsAre(1, 255, 255, 1, 255, 0, 254, 1, 7));
}

} // namespace
