// What a well-known reader makes of the same files: wherever it and ours accept one, both read the same.
#include "engine/temp_directory.h"
#include "sound/wave_bytes.h"
#include "sound/wave_image.h"
#include "sound/wave_reader.h"

#include <gtest/gtest.h>
#include <sndfile.h>

#include <filesystem>
#include <optional>
#include <random>

namespace {

using wave::Bytes;

/// A file as read: its samples as 16-bit ones.
struct Sound {
    int rate = 0;
    int channels = 0;
    std::vector<std::int16_t> samples;
    friend bool operator==(const Sound&, const Sound&) = default;
};

Sound soundOf(const WAVEFORMATEX& format, const BYTE* data, DWORD size) {
    Sound sound{static_cast<int>(format.nSamplesPerSec), format.nChannels, {}};
    const DWORD bytes = size - size % format.nBlockAlign;
    const DWORD width = format.wBitsPerSample / 8U;
    for (DWORD at = 0; at < bytes; at += width) {
        const int sample = width == 1 ? (data[at] - 128) * 256 : data[at] | data[at + 1] << 8;
        sound.samples.push_back(static_cast<std::int16_t>(sample));
    }
    return sound;
}

std::optional<Sound> readFromMemory(Bytes file) {
    WAVEFORMATEX* format = nullptr;
    BYTE* data = nullptr;
    DWORD size = 0;
    if (!parseWaveImage(file, &format, &data, &size)) {
        return std::nullopt;
    }
    return soundOf(CWaveFormat(file, format).block(), data, size);
}

std::optional<Sound> readFromDisk(const std::filesystem::path& path) {
    CWaveReader reader;
    if (reader.open(path.c_str()) != S_OK || reader.dataChunk().cksize > std::filesystem::file_size(path)) {
        return std::nullopt;
    }
    Bytes data(reader.dataChunk().cksize);
    DWORD size = 0;
    if (reader.read(static_cast<DWORD>(data.size()), data.data(), &size) != S_OK) {
        return std::nullopt;
    }
    return soundOf(*reader.format(), data.data(), size);
}

std::optional<Sound> readByPeer(const std::filesystem::path& path) {
    SF_INFO info{};
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
    if (file == nullptr) {
        return std::nullopt;
    }
    Sound sound{info.samplerate, info.channels, {}};
    sound.samples.resize(static_cast<std::size_t>(info.frames * info.channels));
    const sf_count_t read = sf_readf_short(file, sound.samples.data(), info.frames);
    sf_close(file);
    return read == info.frames ? std::optional(sound) : std::nullopt;
}

TEST(Sndfile, TwoThousandFilesAreReadAlike) {
    constexpr int FILES = 2'000;
    const CTempDirectory directory;
    std::mt19937 random(4242);
    int alikeInMemory = 0;
    int alikeOnDisk = 0;
    for (int i = 0; i < FILES; ++i) {
        const Bytes file = wave::anyFile(random);
        const auto path = directory.write("a.wav", wave::textOf(file));
        const auto peer = readByPeer(path);
        const auto fromDisk = readFromDisk(path);
        std::filesystem::remove(path); // writing over a file makes some file systems wait for the disk
        const auto fromMemory = readFromMemory(file);
        ASSERT_TRUE(!peer || !fromMemory || *fromMemory == *peer) << "file " << i;
        ASSERT_TRUE(!peer || !fromDisk || *fromDisk == *peer) << "file " << i << " from disk";
        alikeInMemory += peer && fromMemory ? 1 : 0;
        alikeOnDisk += peer && fromDisk ? 1 : 0;
    }
    EXPECT_GT(alikeInMemory, FILES * 9 / 10);
    EXPECT_GT(alikeOnDisk, FILES * 9 / 10);
}

} // namespace
