#include "sound/wave_samples.h"

#include "sound/downsample.h"

namespace {

/// Whether the down-sampling knows these samples.
bool isReducible(const WAVEFORMATEX& format) {
    const bool isPcm = format.wFormatTag == WAVE_FORMAT_PCM || format.wFormatTag == WAVE_FORMAT_EXTENSIBLE;
    const bool knownWidth = format.wBitsPerSample == 8 || format.wBitsPerSample == 16;
    return isPcm && knownWidth && format.nChannels > 0 &&
           format.nBlockAlign == format.nChannels * (format.wBitsPerSample / 8U);
}

/// When the data does not divide evenly, its last bytes keep what stood there before.
void reduceRate(WAVEFORMATEX& format, std::span<BYTE>& bytes, DWORD highestRate) {
    const DWORD factor = format.nSamplesPerSec / highestRate;
    const std::size_t outFrames = bytes.size() / format.nBlockAlign / factor;
    const auto downsample = format.wBitsPerSample == 16 ? downsample16 : downsample8;
    downsample(bytes, outFrames, format.nChannels, factor);
    format.nSamplesPerSec /= factor;
    format.nAvgBytesPerSec /= factor;
    bytes = bytes.first(bytes.size() / factor);
}

} // namespace

std::optional<WaveSamples> findWaveSamples(std::span<BYTE> image, DWORD highestRate) {
    WAVEFORMATEX* format = nullptr;
    BYTE* data = nullptr;
    DWORD size = 0;
    if (!parseWaveImage(image, &format, &data, &size)) {
        return std::nullopt;
    }
    WaveSamples wave{CWaveFormat(image, format), {data, size}};
    if (wave.format.block().nSamplesPerSec > highestRate && isReducible(wave.format.block())) {
        reduceRate(wave.format.block(), wave.bytes, highestRate);
    }
    return wave;
}
