#include "sound/downsample.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstring>

namespace {

// 0x3F7FFFFE: a full-scale signal never rounds up.
constexpr float ALMOST_ONE = 0.99999988F;

constexpr std::uint64_t BLOCK_SAMPLES = 512;

/// One block: local arrays of a fixed size, which the compiler can prove apart and work on in vectors.
///
/// A sum of `Factor` samples has at most 21 bits and the scale 24, so in double neither product nor sum is
/// ever rounded, and the result depends on the integer sum alone. The scale lies so little below 1 / Factor
/// that it changes the truncated quotient only of a sum that Factor divides: that comes out one step nearer
/// to zero, as if the sum had been one smaller to begin with.
template <unsigned Factor, unsigned Channels>
void reduceBlock(const std::int16_t* in, std::int16_t* out, std::uint64_t frames) {
    for (std::uint64_t frame = 0; frame < frames; ++frame) {
        for (unsigned channel = 0; channel < Channels; ++channel) {
            int sum = 0;
            for (unsigned term = 0; term < Factor; ++term) {
                sum += in[(frame * Factor + term) * Channels + channel];
            }
            const int sign = static_cast<int>(sum > 0) - static_cast<int>(sum < 0);
            out[frame * Channels + channel] =
                static_cast<std::int16_t>((sum - sign) / static_cast<int>(Factor));
        }
    }
}

template <unsigned Factor, unsigned Channels> void reduceInBlocks(BYTE* samples, std::uint64_t outFrames) {
    constexpr std::uint64_t BLOCK_FRAMES = BLOCK_SAMPLES / Channels;
    constexpr std::uint64_t FRAME_BYTES = Channels * sizeof(std::int16_t);
    std::array<std::int16_t, BLOCK_SAMPLES * Factor> in;
    std::array<std::int16_t, BLOCK_SAMPLES> out;
    for (std::uint64_t done = 0; done < outFrames;) {
        const std::uint64_t frames = std::min(BLOCK_FRAMES, outFrames - done);
        std::memcpy(in.data(), samples + done * Factor * FRAME_BYTES, frames * Factor * FRAME_BYTES);
        if (frames == BLOCK_FRAMES) {
            reduceBlock<Factor, Channels>(in.data(), out.data(), BLOCK_FRAMES);
        } else {
            reduceBlock<Factor, Channels>(in.data(), out.data(), frames);
        }
        std::memcpy(samples + done * FRAME_BYTES, out.data(), frames * FRAME_BYTES);
        done += frames;
    }
}

/// Any factor and number of channels, term by term.
void reduceEachSample(BYTE* samples, std::uint64_t outFrames, unsigned channels, unsigned factor) {
    const float scale = ALMOST_ONE / static_cast<float>(factor);
    for (std::uint64_t frame = 0; frame < outFrames; ++frame) {
        for (std::uint64_t channel = 0; channel < channels; ++channel) {
            double sum = 0.0;
            for (std::uint64_t term = 0; term < factor; ++term) {
                std::int16_t sample = 0;
                const std::uint64_t index = (frame * factor + term) * channels + channel;
                std::memcpy(&sample, samples + index * sizeof sample, sizeof sample);
                sum += double{static_cast<float>(sample)} * double{scale};
            }
            const auto result = static_cast<std::int16_t>(sum);
            std::memcpy(samples + (frame * channels + channel) * sizeof result, &result, sizeof result);
        }
    }
}

template <unsigned Factor> void reduceByConstant(BYTE* samples, std::uint64_t outFrames, unsigned channels) {
    switch (channels) {
    case 1:
        return reduceInBlocks<Factor, 1>(samples, outFrames);
    case 2:
        return reduceInBlocks<Factor, 2>(samples, outFrames);
    default:
        return reduceEachSample(samples, outFrames, channels, Factor);
    }
}

} // namespace

void downsample16(std::span<BYTE> samples, std::uint64_t outFrames, unsigned channels, unsigned factor) {
    assert(channels > 0 && factor > 0);
    assert(outFrames <= samples.size() / sizeof(std::int16_t) / channels / factor);
    BYTE* const data = samples.data();
    switch (factor) {
    case 1: // 22051 to 44099 Hz
        return reduceByConstant<1>(data, outFrames, channels);
    case 2: // 44100, 48000
        return reduceByConstant<2>(data, outFrames, channels);
    case 3:
        return reduceByConstant<3>(data, outFrames, channels);
    case 4: // 88200, 96000
        return reduceByConstant<4>(data, outFrames, channels);
    case 8: // 176400, 192000
        return reduceByConstant<8>(data, outFrames, channels);
    default:
        return reduceEachSample(data, outFrames, channels, factor);
    }
}

void downsample8(std::span<BYTE> samples, std::uint64_t outFrames, unsigned channels, unsigned factor) {
    assert(channels > 0 && factor > 0);
    assert(outFrames <= samples.size() / channels / factor);
    for (std::uint64_t frame = 0; frame < outFrames; ++frame) {
        for (std::uint64_t channel = 0; channel < channels; ++channel) {
            std::uint64_t sum = factor / 2;
            for (std::uint64_t term = 0; term < factor; ++term) {
                sum += samples[(frame * factor + term) * channels + channel];
            }
            samples[frame * channels + channel] = static_cast<BYTE>(sum / factor);
        }
    }
}
