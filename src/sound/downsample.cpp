#include "sound/downsample.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstdint>
#include <cstring>

namespace {

// 0x3F7FFFFE: a full-scale signal never rounds up.
constexpr float ALMOST_ONE = 0.99999988F;

constexpr std::size_t BLOCK_SAMPLES = 512;

/// The factors that are worked on in blocks. Over all sums that as many samples can have, the float product
/// below truncates to what the sum of the double terms does; for other factors that is not known.
constexpr unsigned LARGEST_BLOCK_FACTOR = 16;

/// A double holds every term and every sum of up to 16 terms exactly (16 and 4 bits by the 24 of the scale),
/// so the result depends on the sum of the integers alone. Local arrays of a fixed size are what a compiler
/// can tell apart and work on in vectors.
template <unsigned Factor, unsigned Channels> void reduceBlock(const std::int16_t* in, std::int16_t* out) {
    constexpr float SCALE = ALMOST_ONE / static_cast<float>(Factor);
    std::array<int, BLOCK_SAMPLES> sums;
    for (unsigned frame = 0; frame < BLOCK_SAMPLES / Channels; ++frame) {
        for (unsigned channel = 0; channel < Channels; ++channel) {
            int sum = 0;
            for (unsigned term = 0; term < Factor; ++term) {
                sum += in[(frame * Factor + term) * Channels + channel];
            }
            sums[frame * Channels + channel] = sum;
        }
    }
    for (unsigned i = 0; i < BLOCK_SAMPLES; ++i) {
        out[i] = static_cast<std::int16_t>(static_cast<int>(static_cast<float>(sums[i]) * SCALE));
    }
}

template <unsigned Factor, unsigned Channels> void reduceInBlocks(BYTE* samples, std::size_t outFrames) {
    constexpr std::size_t BLOCK_FRAMES = BLOCK_SAMPLES / Channels;
    constexpr std::size_t FRAME_BYTES = Channels * sizeof(std::int16_t);
    static_assert(Factor <= LARGEST_BLOCK_FACTOR);
    std::array<std::int16_t, BLOCK_SAMPLES * Factor> in{}; // a last block that is not full works on zeroes
    std::array<std::int16_t, BLOCK_SAMPLES> out;
    for (std::size_t done = 0; done < outFrames;) {
        const std::size_t frames = std::min(BLOCK_FRAMES, outFrames - done);
        std::memcpy(in.data(), samples + done * Factor * FRAME_BYTES, frames * Factor * FRAME_BYTES);
        reduceBlock<Factor, Channels>(in.data(), out.data());
        std::memcpy(samples + done * FRAME_BYTES, out.data(), frames * FRAME_BYTES);
        done += frames;
    }
}

/// Any factor and number of channels, term by term.
void reduceEachSample(BYTE* samples, std::size_t outFrames, unsigned channels, unsigned factor) {
    const float scale = ALMOST_ONE / static_cast<float>(factor);
    for (std::size_t frame = 0; frame < outFrames; ++frame) {
        for (std::size_t channel = 0; channel < channels; ++channel) {
            double sum = 0.0;
            for (std::size_t term = 0; term < factor; ++term) {
                std::int16_t sample = 0;
                const std::size_t index = (frame * factor + term) * channels + channel;
                std::memcpy(&sample, samples + index * sizeof sample, sizeof sample);
                sum += double{static_cast<float>(sample)} * double{scale};
            }
            const auto result = static_cast<std::int16_t>(sum);
            std::memcpy(samples + (frame * channels + channel) * sizeof result, &result, sizeof result);
        }
    }
}

template <unsigned Factor> void reduceByConstant(BYTE* samples, std::size_t outFrames, unsigned channels) {
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

void downsample16(std::span<BYTE> samples, std::size_t outFrames, unsigned channels, unsigned factor) {
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

void downsample8(std::span<BYTE> samples, std::size_t outFrames, unsigned channels, unsigned factor) {
    assert(channels > 0 && factor > 0);
    assert(outFrames <= samples.size() / channels / factor);
    for (std::size_t frame = 0; frame < outFrames; ++frame) {
        for (std::size_t channel = 0; channel < channels; ++channel) {
            std::size_t sum = factor / 2;
            for (std::size_t term = 0; term < factor; ++term) {
                sum += samples[(frame * factor + term) * channels + channel];
            }
            samples[frame * channels + channel] = static_cast<BYTE>(sum / factor);
        }
    }
}
