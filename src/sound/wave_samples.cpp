#include "sound/wave_samples.h"

#include "sound/downsample.h"
#include "sound/wave_image.h"

#include <cstdint>

namespace {

bool hasWholeFrames(const WAVEFORMATEX& format) {
    const bool knownWidth = format.wBitsPerSample == 8 || format.wBitsPerSample == 16;
    return knownWidth && format.nChannels > 0 && format.nSamplesPerSec > 0 &&
           format.nBlockAlign == std::uint32_t{format.nChannels} * (format.wBitsPerSample / 8U);
}

/// When the data does not divide evenly, its last bytes keep what stood there before.
void reduceRate(WaveSamples& wave, DWORD highestRate) {
    WAVEFORMATEX& format = wave.format.Format;
    const DWORD factor = format.nSamplesPerSec / highestRate;
    const std::uint64_t outFrames = wave.bytes.size() / format.nBlockAlign / factor;
    const auto downsample = format.wBitsPerSample == 16 ? downsample16 : downsample8;
    downsample(wave.bytes, outFrames, format.nChannels, factor);
    format.nSamplesPerSec /= factor;
    format.nAvgBytesPerSec /= factor;
    wave.bytes = wave.bytes.first(wave.bytes.size() / factor);
}

} // namespace

std::optional<WaveSamples> findWaveSamples(std::span<BYTE> image, DWORD highestRate) {
    WAVEFORMATEX* format = nullptr;
    BYTE* data = nullptr;
    DWORD size = 0;
    if (!parseWaveImage(image, &format, &data, &size)) {
        return std::nullopt;
    }
    WaveSamples wave{copyWaveFormat(image, format), {data, size}};
    if (!hasWholeFrames(wave.format.Format)) {
        return std::nullopt;
    }
    if (wave.format.Format.nSamplesPerSec > highestRate) {
        reduceRate(wave, highestRate);
    }
    return wave;
}
