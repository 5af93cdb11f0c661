#include "sound/wave_image.h"
#include "sound/wave_samples.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>

namespace {

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

} // namespace

// Any bytes as a WAV file in memory: what is found, and what is left after down-sampling, lies within them.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto block = std::make_unique_for_overwrite<BYTE[]>(size);
    std::copy_n(data, size, block.get());
    const std::span<BYTE> image(block.get(), size);

    WAVEFORMATEX* format = nullptr;
    BYTE* samples = nullptr;
    DWORD length = 0;
    if (parseWaveImage(image, &format, &samples, &length)) {
        require(samples >= image.data() && samples + length <= image.data() + size);
        require(CWaveFormat(image, format).block().cbSize <= size);
    }
    auto wave = findWaveSamples(image, 22050);
    if (wave) {
        require(wave->bytes.size() <= length && wave->bytes.data() == samples);
    }
    return 0;
}
