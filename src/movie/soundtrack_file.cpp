#include "movie/soundtrack_file.h"

#include "engine/qx_file.h"
#include "sound/wave_reader.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <system_error>

namespace {

/// The file that an engine name stands for, opened at its first sample.
class CSoundtrackFile {
public:
    explicit CSoundtrackFile(const char* name)
        : m_bFound(qxCFile::getFullPathName(name, m_path.data()))
        , m_bWave(m_bFound && m_reader.open(m_path.data()) == S_OK) {}

    bool isFound() const { return m_bFound; }
    bool isWave() const { return m_bWave; }
    const WAVEFORMATEX& format() const { return *m_reader.format(); }

    /// Bytes of samples that are there: a header may claim more, as that of a stream does.
    DWORD dataSize() const {
        std::error_code error;
        const std::uintmax_t size = std::filesystem::file_size(m_path.data(), error);
        const MMCKINFO& chunk = m_reader.dataChunk();
        const std::uintmax_t room = error || size < chunk.dwDataOffset ? 0 : size - chunk.dwDataOffset;
        return static_cast<DWORD>(std::min<std::uintmax_t>(chunk.cksize, room));
    }

private:
    std::array<char, qxCFile::MAX_PATH_LENGTH> m_path{};
    CWaveReader m_reader;
    bool m_bFound;
    bool m_bWave;
};

bool isPcm(const WAVEFORMATEX& format) {
    if (format.wFormatTag == WAVE_FORMAT_EXTENSIBLE &&
        format.cbSize >= sizeof(WAVEFORMATEXTENSIBLE) - sizeof(WAVEFORMATEX)) {
        return reinterpret_cast<const WAVEFORMATEXTENSIBLE&>(format).SubFormat == KSDATAFORMAT_SUBTYPE_PCM;
    }
    return format.wFormatTag == WAVE_FORMAT_PCM;
}

} // namespace

float measureWaveLength(const char* name) {
    const CSoundtrackFile file(name);
    // Signed, as the header's field has been read ever since: what no file can mean counts backwards.
    const auto bytesASecond = file.isWave() ? static_cast<std::int32_t>(file.format().nAvgBytesPerSec) : 0;
    return bytesASecond == 0 ? 0.0F : static_cast<float>(static_cast<double>(file.dataSize()) / bytesASecond);
}

std::string whySilent(const char* name) {
    constexpr WORD MOST_CHANNELS = 2;
    const CSoundtrackFile file(name);
    if (!file.isFound()) {
        return "The file is not there.";
    }
    if (!file.isWave()) {
        return "This is not a WAV file.";
    }
    const WAVEFORMATEX& format = file.format();
    if (!isPcm(format)) {
        return "Its samples are compressed or not whole numbers.";
    }
    if (format.wBitsPerSample != 8 && format.wBitsPerSample != 16) {
        return "Its samples have " + std::to_string(format.wBitsPerSample) + " bits; 8 and 16 can be played.";
    }
    if (format.nChannels < 1 || format.nChannels > MOST_CHANNELS) {
        return "It has " + std::to_string(format.nChannels) + " channels; mono and stereo can be played.";
    }
    return file.dataSize() == 0 ? "There is no sound in it." : "";
}
