// The two readers of WAV files, the one in memory and the one on disk, over the same files.
#include "sound/reference_downsample.h"
#include "sound/wave_bytes.h"
#include "sound/wave_reader.h"
#include "sound/wave_samples.h"
#include "support/temp_directory.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

using wave::Bytes;
using wave::operator+;
using wave::chunk;
using wave::lyingChunk;
using wave::riff;
using wave::riffOfSize;

const Bytes BYTES = {1, 2, 3, 4, 5, 6, 7, 8};
const Bytes DATA = chunk("data", BYTES);
const Bytes FORMAT = chunk("fmt ", wave::format(2, 22050, 16));
const Bytes ADPCM = wave::format(1, 8000, 4, 2);

/// What the reader in memory finds: the offsets, or -1.
struct Found {
    bool all = false;
    std::ptrdiff_t format = -1;
    std::ptrdiff_t data = -1;
    DWORD size = 0;
    friend bool operator==(const Found&, const Found&) = default;
};

/// What the reader on disk finds: the format's extra bytes, or -1 when there is to be no format.
struct Opened {
    HRESULT result = E_FAIL;
    int extraBytes = -1;
    DWORD dataSize = 0;
};

/// The copy has a block of exactly its size, so that a sanitizer sees every step outside.
Found findIn(Bytes image) {
    WAVEFORMATEX* format = nullptr;
    BYTE* data = nullptr;
    Found found;
    found.all = parseWaveImage(image, &format, &data, &found.size);
    found.format = format != nullptr ? reinterpret_cast<BYTE*>(format) - image.data() : -1;
    found.data = data != nullptr ? data - image.data() : -1;
    return found;
}

class WaveReaders : public testing::Test {
protected:
    HRESULT open(const Bytes& bytes) {
        return m_reader.open(m_directory.write("a.wav", wave::textOf(bytes)).c_str());
    }

    CTempDirectory m_directory;
    CWaveReader m_reader;
};

TEST_F(WaveReaders, AcceptAndRefuse) {
    const Bytes extra = ADPCM + wave::word16(32) + Bytes(32, 0xEE);
    const Bytes pcmExtra = wave::format(2, 22050, 16) + wave::word16(4) + Bytes(4, 1);
    const struct {
        const char* name;
        Bytes file;
        Found image;
        Opened disk;
    } cases[] = {
        {"ordinary", riff(FORMAT + DATA), {true, 20, 44, 8}, {S_OK, 0, 8}},
        {"data first", riff(DATA + FORMAT), {true, 36, 20, 8}, {S_OK, 0, 8}},
        {"odd chunk", riff(chunk("LIST", {1, 2, 3}) + FORMAT + DATA), {true, 32, 56, 8}, {S_OK, 0, 8}},
        {"extra bytes", riff(chunk("fmt ", extra) + DATA), {true, 20, 78, 8}, {S_OK, 32, 8}},
        {"PCM has none", riff(chunk("fmt ", pcmExtra) + DATA), {true, 20, 50, 8}, {S_OK, 0, 8}},
        {"13 bytes of format", riff(chunk("fmt ", Bytes(13, 1)) + DATA), {}, {}},
        {"14 bytes of format", riff(chunk("fmt ", Bytes(14, 1)) + DATA), {true, 20, 42, 8}, {}},
        {"15 bytes of format", riff(chunk("fmt ", Bytes(15, 1)) + DATA), {true, 20, 44, 8}, {}},
        {"two formats", riff(FORMAT + chunk("fmt ", {1, 2}) + DATA), {true, 20, 54, 8}, {S_OK, 0, 8}},
        {"two data chunks", riff(DATA + chunk("data", {1, 1}) + FORMAT), {true, 46, 20, 8}, {S_OK, 0, 8}},
        {"no data: the format stays", riff(FORMAT), {false, 20, -1, 0}, {E_FAIL, 0, 0}},
        {"data of no bytes", riff(FORMAT + chunk("data", {})), {true, 20, 44, 0}, {S_OK, 0, 0}},
        {"data of no bytes first", riff(chunk("data", {}) + FORMAT), {false, 28, 20, 0}, {S_OK, 0, 0}},
        {"no format", riff(DATA), {false, -1, 20, 8}, {}},
        {"long data", riff(FORMAT + lyingChunk("data", ~0U, BYTES)), {true, 20, 44, 8}, {S_OK, 0, ~0U}},
        {"hidden data", riff(FORMAT + lyingChunk("LIST", ~1U, DATA)), {false, 20, -1, 0}, {E_FAIL, 0, 0}},
        {"cut format", riff(lyingChunk("fmt ", 1000, Bytes(10, 1))), {}, {}},
        {"cut extra bytes", riff(lyingChunk("fmt ", 50, ADPCM + Bytes(9, 255))), {false, 20, -1, 0}, {}},
        {"2 GB of format", riff(lyingChunk("fmt ", 1U << 31U, BYTES + BYTES) + DATA), {false, 20, -1, 0}, {}},
        {"RIFF of no bytes", riffOfSize(0, FORMAT + DATA), {}, {}},
        {"RIFF of 4 GB", riffOfSize(~0U, FORMAT + DATA), {true, 20, 44, 8}, {S_OK, 0, 8}},
        {"data behind RIFF", riffOfSize(28, FORMAT + DATA), {false, 20, -1, 0}, {E_FAIL, 0, 0}},
        {"another form", riff(FORMAT + DATA, "AVI "), {}, {}},
        {"no RIFF", chunk("RIFX", Bytes(40, 0)), {}, {}},
        {"empty", {}, {}, {}},
    };
    for (const auto& [name, file, image, disk] : cases) {
        EXPECT_TRUE(findIn(file) == image) << name;
        EXPECT_EQ(open(file), disk.result) << name;
        const WAVEFORMATEX* format = m_reader.format();
        EXPECT_EQ(format != nullptr ? int{format->cbSize} : -1, disk.extraBytes) << name;
        EXPECT_TRUE(disk.result != S_OK || m_reader.dataChunk().cksize == disk.dataSize) << name;
    }
}

TEST_F(WaveReaders, EveryPrefixIsReadWithinItsBounds) {
    const Bytes short8 = chunk("fmt ", wave::format(1, 96000, 8));
    for (const Bytes& whole : {riff(chunk("fmt ", wave::extensibleFormat(1, 48000, 16)) + DATA),
                               riff(chunk("LIST", {1, 2, 3}) + DATA + short8)}) {
        for (std::size_t length = 0; length <= whole.size(); ++length) {
            Bytes prefix(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
            const Found found = findIn(prefix);
            EXPECT_TRUE(!found.all || static_cast<std::size_t>(found.data) + found.size <= length);
            Bytes part(100);
            DWORD count = 0;
            const bool read = open(prefix) == S_OK && m_reader.read(100, part.data(), &count) == S_OK;
            part.resize(count);
            EXPECT_TRUE(read ? part == BYTES : length < whole.size()) << "all that is claimed, or failure";
            EXPECT_EQ(findWaveSamples(prefix, 22050).has_value(), found.all);
        }
    }
}

TEST(WaveImage, GivesOnlyWhatIsAskedFor) {
    Bytes image = riff(DATA);
    WAVEFORMATEX* format = nullptr;
    DWORD size = 0;
    EXPECT_TRUE(parseWaveImage(image, nullptr, nullptr, &size));
    EXPECT_EQ(size, 8U);
    EXPECT_FALSE(parseWaveImage(image, &format, nullptr, nullptr));
    image = riff(FORMAT);
    EXPECT_TRUE(parseWaveImage(image, &format, nullptr, nullptr));
}

TEST(WaveSamples, RateIsReducedAndTheFormatWithIt) {
    const struct {
        const char* name;
        Bytes format;
        std::size_t dataBytes;
        unsigned rate; ///< after the reduction
        unsigned factor;
    } cases[] = {
        {"twice", wave::format(2, 44100, 16), 400, 22050, 2},
        {"more than twice", wave::format(2, 48000, 16), 400, 24000, 2},
        {"four times", wave::format(1, 96000, 16), 400, 24000, 4},
        {"less than twice", wave::format(1, 32000, 16), 400, 32000, 1},
        {"left-over bytes", wave::format(2, 44100, 16), 411, 22050, 2},
        {"just so", wave::format(2, 22050, 16), 400, 22050, 0},
        {"24 bits", wave::format(2, 44100, 24), 600, 44100, 0},
        {"no channels", wave::format(0, 44100, 16), 400, 44100, 0},
        {"no PCM", wave::format(2, 44100, 16, 3) + wave::word16(0), 400, 44100, 0},
    };
    for (const auto& [name, block, dataBytes, rate, factor] : cases) {
        const auto samples = wave::noise(dataBytes / 2, 5);
        Bytes expected = wave::bytesOf(samples);
        expected.resize(dataBytes, 0x55);
        Bytes image = wave::file(block, expected);
        if (factor > 0) {
            const Bytes reduced = wave::bytesOf(referenceDownsample(samples, block[2], factor));
            std::copy(reduced.begin(), reduced.end(), expected.begin());
            expected.resize(dataBytes / factor);
        }
        auto found = findWaveSamples(image, 22050);
        ASSERT_TRUE(found) << name;
        const WAVEFORMATEX& format = found->format.block();
        EXPECT_EQ(DWORD{format.nSamplesPerSec}, rate) << name;
        EXPECT_EQ(DWORD{format.nAvgBytesPerSec}, rate * format.nBlockAlign) << name;
        EXPECT_EQ(Bytes(found->bytes.begin(), found->bytes.end()), expected) << name;
    }
}

/// A device may read as many bytes behind the format as it announces.
TEST(WaveSamples, FormatBringsItsExtraBytes) {
    for (const unsigned claimed : {32U, 0xFFFFU}) {
        Bytes image = wave::file(ADPCM + wave::word16(claimed) + Bytes(32, 0xEE), BYTES);
        auto found = findWaveSamples(image, 22050);
        const auto* first = reinterpret_cast<const BYTE*>(&found->format.block() + 1);
        EXPECT_EQ(Bytes(first, first + found->format.block().cbSize), Bytes(32, 0xEE)) << claimed;
    }
}

TEST_F(WaveReaders, ReadsInPiecesToTheEndAndAgain) {
    const Bytes data = wave::bytesOf(wave::noise(20'001, 3)); // several of the file's buffers
    ASSERT_EQ(open(riff(FORMAT + chunk("data", data))), S_OK);
    for (const DWORD piece : {1U, 4097U, 1'000'000U}) {
        Bytes read;
        Bytes part(piece);
        for (DWORD count = 1; count > 0;) {
            ASSERT_EQ(m_reader.read(piece, part.data(), &count), S_OK);
            read.insert(read.end(), part.begin(), part.begin() + count);
        }
        EXPECT_EQ(read, data) << "pieces of " << piece;
        ASSERT_EQ(m_reader.reset(), S_OK);
    }
}

TEST_F(WaveReaders, CloseTheirFileAtTheirEnd) {
    const auto openFiles = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
    };
    ASSERT_EQ(open(riff(FORMAT + DATA)), S_OK);
    const auto before = openFiles();
    ASSERT_EQ(CWaveReader().open((m_directory.path() / "a.wav").c_str()), S_OK);
    EXPECT_EQ(openFiles(), before);
}

TEST_F(WaveReaders, WhatIsNoFileIsRefused) {
    const std::filesystem::path missing = m_directory.path() / "missing.wav";
    for (const char* path :
         {missing.c_str(), m_directory.path().c_str(), static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(m_reader.open(path), E_FAIL);
    }
    EXPECT_EQ(m_reader.reset(), E_FAIL) << "and nothing is open";
}

} // namespace
