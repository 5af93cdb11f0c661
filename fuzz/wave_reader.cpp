#include "sound/wave_reader.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include <sys/mman.h>
#include <unistd.h>

namespace {

/// A file without a disk, written anew for each input.
class CMemoryFile {
public:
    CMemoryFile() : m_nFile(memfd_create("wave", 0)), m_strPath("/proc/self/fd/" + std::to_string(m_nFile)) {}

    const char* write(const std::uint8_t* data, std::size_t size) const {
        const auto length = static_cast<ssize_t>(size);
        const bool written = pwrite(m_nFile, data, size, 0) == length && ftruncate(m_nFile, length) == 0;
        if (!written) {
            std::abort();
        }
        return m_strPath.c_str();
    }

private:
    int m_nFile;
    std::string m_strPath;
};

/// To the end of the data, or to where reading fails; how many bytes came.
std::size_t readAll(CWaveReader& reader, std::size_t most) {
    std::array<BYTE, 1000> part;
    std::size_t total = 0;
    DWORD count = 1;
    while (count > 0 && reader.read(part.size(), part.data(), &count) == S_OK) {
        total += count;
        if (count > part.size() || total > most) {
            std::abort();
        }
    }
    return total;
}

} // namespace

// Any bytes as a WAV file on disk: opened, read to the end twice, never more than the file holds.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const CMemoryFile FILE;
    CWaveReader reader;
    if (FAILED(reader.open(FILE.write(data, size)))) {
        return 0;
    }
    const DWORD claimed = reader.dataChunk().cksize;
    const std::size_t first = readAll(reader, size);
    const bool again = reader.reset() == S_OK && reader.dataChunk().cksize == claimed;
    if (!again || readAll(reader, size) != first ||
        reader.format()->cbSize + sizeof(WAVEFORMATEX) > size + 2) {
        std::abort();
    }
    return 0;
}
