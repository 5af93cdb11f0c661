// What a well-known reader makes of the same files: wherever it and ours accept one, both read the same.
#include "engine/temp_directory.h"
#include "sound/wave_bytes.h"
#include "sound/wave_image.h"
#include "sound/wave_reader.h"

#include <gtest/gtest.h>
#include <sndfile.h>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <random>

namespace {

using wave::Bytes;
using wave::operator+;

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
    return soundOf(copyWaveFormat(file, format).Format, data, size);
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

class CFileMaker {
public:
    explicit CFileMaker(unsigned seed) : m_random(seed) {}

    Bytes make() {
        const unsigned channels = 1 + below(2);
        const unsigned bits = below(3) == 0 ? 8 : 16;
        const std::uint32_t rates[] = {8000, 11025, 22050, 32000, 44100, 48000, 96000, 1 + below(200'000)};
        const std::uint32_t rate = rates[below(std::size(rates))];
        const Bytes format =
            below(4) == 0 ? wave::extensibleFormat(channels, rate, bits) : wave::format(channels, rate, bits);
        Bytes data(below(600) * channels * bits / 8);
        for (BYTE& byte : data) {
            byte = static_cast<BYTE>(below(256));
        }
        const Bytes dataChunk =
            below(20) == 0
                ? wave::lyingChunk("data", static_cast<std::uint32_t>(data.size()) + below(50), data)
                : wave::chunk("data", data);
        const Bytes formatChunk = wave::chunk("fmt ", format);
        const bool dataFirst = below(20) == 0;
        Bytes chunks = otherChunks();
        chunks = chunks + (dataFirst ? dataChunk : formatChunk) + otherChunks();
        chunks = chunks + (dataFirst ? formatChunk : dataChunk) + otherChunks();
        return below(20) == 0 ? wave::riffOfSize(static_cast<std::uint32_t>(m_random()), chunks)
                              : wave::riff(chunks);
    }

private:
    unsigned below(std::size_t limit) { return static_cast<unsigned>(m_random() % limit); }

    Bytes otherChunks() {
        Bytes chunks;
        for (unsigned count = below(3); count > 0; --count) {
            const char* const ids[] = {"LIST", "junk", "PAD ", "id3 ", "note"};
            chunks = std::move(chunks) + wave::chunk(ids[below(std::size(ids))], Bytes(below(40), 0));
        }
        return chunks;
    }

    std::mt19937 m_random;
};

TEST(Sndfile, TenThousandFilesAreReadAlike) {
    constexpr int FILES = 10'000;
    const CTempDirectory directory;
    CFileMaker maker(4242);
    int alikeInMemory = 0;
    int alikeOnDisk = 0;
    for (int i = 0; i < FILES; ++i) {
        const Bytes file = maker.make();
        const auto path = directory.write("a.wav", {reinterpret_cast<const char*>(file.data()), file.size()});
        const auto peer = readByPeer(path);
        const auto fromDisk = readFromDisk(path);
        std::filesystem::remove(path); // writing over a file makes some file systems wait for the disk
        if (!peer) {
            continue;
        }
        if (const auto ours = readFromMemory(file)) {
            ASSERT_TRUE(*ours == *peer) << "file " << i << ": " << ours->samples.size()
                                        << " samples, the peer " << peer->samples.size();
            ++alikeInMemory;
        }
        if (fromDisk) {
            ASSERT_TRUE(*fromDisk == *peer) << "file " << i << " from disk: " << fromDisk->samples.size();
            ++alikeOnDisk;
        }
    }
    std::cout << FILES << " files: " << alikeInMemory << " alike in memory, " << alikeOnDisk << " on disk\n";
    EXPECT_GT(alikeInMemory, FILES * 9 / 10);
    EXPECT_GT(alikeOnDisk, FILES * 9 / 10);
}

/// The test sounds of the alsa-utils package, where it is installed.
TEST(Sndfile, RealFilesAreReadAlike) {
    const std::filesystem::path folder = "/usr/share/sounds/alsa";
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        if (entry.path().extension() != ".wav") {
            continue;
        }
        std::ifstream stream(entry.path(), std::ios::binary);
        const Bytes file{std::istreambuf_iterator<char>(stream), {}};
        const auto peer = readByPeer(entry.path());
        ASSERT_TRUE(peer) << entry.path();
        EXPECT_TRUE(readFromMemory(file) == peer) << entry.path();
        EXPECT_TRUE(readFromDisk(entry.path()) == peer) << entry.path();
    }
}

} // namespace
