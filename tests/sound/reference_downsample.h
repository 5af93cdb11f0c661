#pragma once

#include <cstdint>
#include <vector>

/// The reduction as it is defined: every term times a float, summed in double in order, truncated. The fast
/// code is held to this, sample by sample.
inline void referenceDownsample(const std::int16_t* in, std::int16_t* out, std::uint64_t outFrames,
                                unsigned channels, unsigned factor) {
    const float scale = 0.99999988F / static_cast<float>(factor);
    for (std::uint64_t frame = 0; frame < outFrames; ++frame) {
        for (unsigned channel = 0; channel < channels; ++channel) {
            double sum = 0.0;
            for (unsigned term = 0; term < factor; ++term) {
                sum += static_cast<double>(in[(frame * factor + term) * channels + channel]) *
                       static_cast<double>(scale);
            }
            out[frame * channels + channel] = static_cast<std::int16_t>(sum);
        }
    }
}

inline std::vector<std::int16_t> referenceDownsample(const std::vector<std::int16_t>& in, unsigned channels,
                                                     unsigned factor) {
    std::vector<std::int16_t> out(in.size() / channels / factor * channels);
    referenceDownsample(in.data(), out.data(), out.size() / channels, channels, factor);
    return out;
}
