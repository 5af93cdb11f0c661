#include "sound/wave_image.h"

#include "sound/reference_downsample.h"
#include "sound/wave_bytes.h"
#include "sound/wave_samples.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

namespace {

using wave::Bytes;
using wave::operator+;
using wave::chunk;
using wave::lyingChunk;
using wave::riff;

const Bytes DATA = {1, 2, 3, 4, 5, 6, 7, 8};
const Bytes FORMAT = wave::format(2, 22050, 16);

/// What is found in an image: the offsets, or -1.
struct Found {
    bool all = false;
    std::ptrdiff_t format = -1;
    std::ptrdiff_t data = -1;
    DWORD size = 0;
    friend bool operator==(const Found&, const Found&) = default;
};

std::ostream& operator<<(std::ostream& stream, const Found& found) {
    return stream << "{" << found.all << ", " << found.format << ", " << found.data << ", " << found.size
                  << "}";
}

/// The image lies in a block of exactly its size, so that a sanitizer sees every step outside.
Found parse(const Bytes& bytes) {
    const auto block = std::make_unique<BYTE[]>(bytes.size());
    std::copy(bytes.begin(), bytes.end(), block.get());
    WAVEFORMATEX* format = nullptr;
    BYTE* data = nullptr;
    Found found;
    found.all = parseWaveImage({block.get(), bytes.size()}, &format, &data, &found.size);
    found.format = format != nullptr ? reinterpret_cast<BYTE*>(format) - block.get() : -1;
    found.data = data != nullptr ? data - block.get() : -1;
    if (format != nullptr) {
        copyWaveFormat({block.get(), bytes.size()}, format);
    }
    return found;
}

TEST(WaveImage, FindsFormatAndData) {
    const struct {
        const char* name;
        Bytes image;
        Found found;
    } cases[] = {
        {"ordinary", wave::file(FORMAT, DATA), {true, 20, 44, 8}},
        {"data before the format", riff(chunk("data", DATA) + chunk("fmt ", FORMAT)), {true, 36, 20, 8}},
        {"an odd chunk and its pad byte",
         riff(chunk("LIST", {1, 2, 3}) + chunk("fmt ", FORMAT) + chunk("junk", {9}) + chunk("data", DATA)),
         {true, 32, 66, 8}},
        {"extensible", wave::file(wave::extensibleFormat(2, 22050, 16), DATA), {true, 20, 68, 8}},
        {"14 bytes of format", wave::file(Bytes(14, 1), DATA), {true, 20, 42, 8}},
        {"15 bytes of format", wave::file(Bytes(15, 1), DATA), {true, 20, 44, 8}},
        {"13 bytes of format", wave::file(Bytes(13, 1), DATA), {false, -1, -1, 0}},
        {"two formats: the first",
         riff(chunk("fmt ", FORMAT) + chunk("fmt ", FORMAT) + chunk("data", DATA)),
         {true, 20, 68, 8}},
        {"two data chunks: the first",
         riff(chunk("data", DATA) + chunk("data", {1, 1}) + chunk("fmt ", FORMAT)),
         {true, 46, 20, 8}},
        {"a second format that is too short",
         riff(chunk("fmt ", FORMAT) + chunk("fmt ", {1, 2}) + chunk("data", DATA)),
         {true, 20, 54, 8}},
        {"no data", riff(chunk("fmt ", FORMAT)), {false, 20, -1, 0}},
        {"data of no bytes", wave::file(FORMAT, {}), {true, 20, 44, 0}},
        {"data of no bytes before the format",
         riff(chunk("data", {}) + chunk("fmt ", FORMAT)),
         {false, 28, 20, 0}},
        {"no format", riff(chunk("data", DATA)), {false, -1, 20, 8}},
        {"data that claims more than remains",
         riff(chunk("fmt ", FORMAT) + lyingChunk("data", 0xFFFFFFFF, DATA)),
         {true, 20, 44, 8}},
        {"a chunk that hides the data",
         riff(chunk("fmt ", FORMAT) + lyingChunk("LIST", 0xFFFFFFFE, DATA)),
         {false, 20, -1, 0}},
        {"a format that claims more than remains",
         riff(lyingChunk("fmt ", 1000, Bytes(10, 1))),
         {false, -1, -1, 0}},
        {"a RIFF size of 0",
         wave::riffOfSize(0, chunk("fmt ", FORMAT) + chunk("data", DATA)),
         {false, -1, -1, 0}},
        {"the largest RIFF size",
         wave::riffOfSize(0xFFFFFFFF, chunk("fmt ", FORMAT) + chunk("data", DATA)),
         {true, 20, 44, 8}},
        {"chunks behind the RIFF size",
         wave::riffOfSize(28, chunk("fmt ", FORMAT) + chunk("data", DATA)),
         {false, 20, -1, 0}},
        {"another form", riff(chunk("fmt ", FORMAT) + chunk("data", DATA), "AVI "), {false, -1, -1, 0}},
        {"no RIFF", chunk("RIFX", Bytes(40, 0)), {false, -1, -1, 0}},
        {"empty", {}, {false, -1, -1, 0}},
    };
    for (const auto& [name, image, found] : cases) {
        EXPECT_EQ(parse(image), found) << name;
    }
}

TEST(WaveImage, GivesOnlyWhatIsAskedFor) {
    Bytes image = wave::file(FORMAT, DATA);
    WAVEFORMATEX* format = nullptr;
    BYTE* data = nullptr;
    DWORD size = 0;
    EXPECT_TRUE(parseWaveImage(image, &format, nullptr, nullptr));
    EXPECT_TRUE(parseWaveImage(image, nullptr, &data, nullptr));
    EXPECT_EQ(data, image.data() + 44);
    EXPECT_TRUE(parseWaveImage(image, nullptr, nullptr, &size));
    EXPECT_EQ(size, 8U);
    Bytes noFormat = riff(chunk("data", DATA));
    EXPECT_TRUE(parseWaveImage(noFormat, nullptr, &data, &size));
    EXPECT_FALSE(parseWaveImage(noFormat, &format, &data, &size));
    EXPECT_EQ(format, nullptr);
}

TEST(WaveImage, EveryPrefixIsReadWithinItsBounds) {
    const Bytes files[] = {
        wave::file(wave::format(2, 44100, 16), Bytes(64, 7)),
        wave::file(wave::format(1, 96000, 8), Bytes(33, 7)),
        wave::file(wave::extensibleFormat(1, 48000, 16), Bytes(40, 7)),
        riff(chunk("LIST", {1, 2, 3}) + chunk("data", Bytes(40, 7)) + chunk("fmt ", FORMAT)),
        riff(chunk("data", DATA) + chunk("fmt ", Bytes(14, 1))),
    };
    for (const Bytes& whole : files) {
        std::size_t accepted = 0;
        for (std::size_t length = 0; length <= whole.size(); ++length) {
            const Bytes prefix(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
            const Found found = parse(prefix);
            if (found.all) {
                ++accepted;
                EXPECT_LE(static_cast<std::size_t>(found.data) + found.size, length);
            }
            const auto block = std::make_unique<BYTE[]>(length);
            std::copy(prefix.begin(), prefix.end(), block.get());
            findWaveSamples({block.get(), length}, 22050);
        }
        EXPECT_GT(accepted, 0U);
        EXPECT_LT(accepted, whole.size());
    }
}

TEST(WaveSamples, RateIsReducedAndTheFormatWithIt) {
    const struct {
        const char* name;
        std::uint32_t rate;
        unsigned channels;
        std::size_t dataBytes;
        std::size_t newBytes;
        std::uint32_t newRate;
        unsigned factor;
    } cases[] = {
        {"twice", 44100, 2, 400, 200, 22050, 2},           {"more than twice", 48000, 2, 400, 200, 24000, 2},
        {"four times", 96000, 1, 400, 100, 24000, 4},      {"less than twice", 32000, 1, 400, 400, 32000, 1},
        {"just so", 22050, 2, 400, 400, 22050, 0},         {"below", 11025, 1, 400, 400, 11025, 0},
        {"left-over bytes", 44100, 2, 411, 205, 22050, 2},
    };
    for (const auto& row : cases) {
        const auto samples = wave::noise(row.dataBytes / 2, 5);
        Bytes data = wave::bytesOf(samples);
        data.resize(row.dataBytes, 0x55);
        Bytes image = wave::file(wave::format(row.channels, row.rate, 16), data);
        Bytes expected = data;
        if (row.factor > 0) {
            const Bytes reduced = wave::bytesOf(referenceDownsample(samples, row.channels, row.factor));
            std::copy(reduced.begin(), reduced.end(), expected.begin());
        }
        expected.resize(row.newBytes);
        const auto found = findWaveSamples(image, 22050);
        ASSERT_TRUE(found) << row.name;
        const WAVEFORMATEX format = found->format.Format;
        EXPECT_EQ(DWORD{format.nSamplesPerSec}, row.newRate) << row.name;
        EXPECT_EQ(DWORD{format.nAvgBytesPerSec}, row.rate * row.channels * 2 / std::max(row.factor, 1U));
        EXPECT_EQ(Bytes(found->bytes.begin(), found->bytes.end()), expected) << row.name;
    }
}

TEST(WaveSamples, FormatsWithoutWholeFramesAreRefused) {
    const auto withField = [](std::size_t offset, unsigned value) {
        Bytes format = wave::format(2, 96000, 16);
        format[offset] = static_cast<BYTE>(value & 0xFFU);
        format[offset + 1] = static_cast<BYTE>(value >> 8U);
        return format;
    };
    Bytes noRate = withField(4, 0);
    noRate[6] = noRate[7] = 0;
    for (const Bytes& format :
         {withField(2, 0), withField(2, 0x8000), noRate, withField(12, 0), withField(12, 1),
          withField(12, 0xFFFF), withField(14, 0), withField(14, 24), Bytes(14, 2)}) {
        Bytes image = wave::file(format, Bytes(400, 1));
        EXPECT_FALSE(findWaveSamples(image, 22050));
    }
}

} // namespace
