// Files as a well-known library writes them: both readers find the samples that went in.
#include "sound/wave_bytes.h"
#include "sound/wave_image.h"
#include "sound/wave_reader.h"
#include "support/temp_directory.h"

#include <gtest/gtest.h>
#include <sndfile.h>

#include <random>

namespace {

using wave::Bytes;

/// Writes a file of 16-bit samples, with texts before or behind them, which become chunks of their own.
void write(const std::string& path, SF_INFO info, const std::vector<std::int16_t>& samples, unsigned texts) {
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    ASSERT_NE(file, nullptr);
    for (const unsigned bit : {1U, 2U}) {
        if ((texts & bit) != 0) {
            sf_set_string(file, bit == 1 ? SF_STR_TITLE : SF_STR_COMMENT, std::string(texts, 'x').c_str());
        }
        if (bit == 1) {
            sf_write_short(file, samples.data(), std::ssize(samples));
        }
    }
    sf_close(file);
}

TEST(Sndfile, ItsFilesAreReadAsTheyWereWritten) {
    const CTempDirectory directory;
    std::mt19937 random(4242);
    for (int i = 0; i < 300; ++i) {
        const int channels = static_cast<int>(random() % 2) + 1;
        const int kind = random() % 3 == 0 ? SF_FORMAT_WAVEX : SF_FORMAT_WAV;
        const SF_INFO info = {
            0, static_cast<int>(random() % 200'000) + 1, channels, kind | SF_FORMAT_PCM_16, 0, 0};
        const auto samples = wave::noise(random() % 9000 / 2 * 2, static_cast<unsigned>(i));
        const std::string path = (directory.path() / std::to_string(i)).string();
        write(path, info, samples, static_cast<unsigned>(random() % 20));

        CWaveReader reader;
        ASSERT_EQ(reader.open(path.c_str()), S_OK) << i;
        ASSERT_EQ(reader.dataChunk().cksize, samples.size() * 2) << i;
        Bytes data(samples.size() * 2 + 1);
        DWORD size = 0;
        ASSERT_EQ(reader.read(static_cast<DWORD>(data.size()), data.data(), &size), S_OK) << i;
        data.resize(size);
        EXPECT_EQ(data, wave::bytesOf(samples)) << i;
        EXPECT_EQ(reader.format()->nSamplesPerSec, static_cast<DWORD>(info.samplerate)) << i;

        std::ifstream stream(path, std::ios::binary);
        Bytes file{std::istreambuf_iterator<char>(stream), {}};
        WAVEFORMATEX* format = nullptr;
        BYTE* first = nullptr;
        ASSERT_TRUE(parseWaveImage(file, &format, &first, &size) || samples.empty()) << i;
        EXPECT_EQ(Bytes(first, first + size), wave::bytesOf(samples)) << i;
        EXPECT_EQ(format->nChannels, channels) << i;
    }
}

} // namespace
