#include "platform/multimedia_io.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <limits>
#include <memory>
#include <system_error>

namespace {

constexpr LONG BUFFER_SIZE = 8192;

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using FilePointer = std::unique_ptr<std::FILE, CloseFile>;

DWORD readLittleEndian(const std::array<char, 4>& bytes) {
    return mmioFOURCC(bytes[0], bytes[1], bytes[2], bytes[3]);
}

} // namespace

/// An open file and the one buffer through which all its bytes come. Owned by whoever holds the handle.
class CMultimediaFile {
public:
    explicit CMultimediaFile(FilePointer file) : m_file(std::move(file)) {}

    std::int64_t position() const { return m_nBufferStart + m_nNext; }

    /// Nothing is read until bytes are asked for, so a position past the end costs nothing.
    void moveTo(std::int64_t position) {
        const std::int64_t inBuffer = position - m_nBufferStart;
        if (inBuffer >= 0 && inBuffer <= m_nEnd) {
            m_nNext = static_cast<LONG>(inBuffer);
            return;
        }
        m_nBufferStart = position;
        m_nNext = m_nEnd = 0;
    }

    /// Drops what the buffer holds and fills it from the position; empty at the end of the file.
    void refill() {
        m_nBufferStart = position();
        m_nNext = m_nEnd = 0;
        if (std::fseek(m_file.get(), static_cast<long>(m_nBufferStart), SEEK_SET) == 0) {
            m_nEnd = static_cast<LONG>(std::fread(m_buffer.data(), 1, m_buffer.size(), m_file.get()));
        }
    }

    LONG read(char* destination, LONG count) {
        LONG done = 0;
        while (done < count) {
            if (m_nNext == m_nEnd) {
                refill();
                if (m_nEnd == 0) {
                    break;
                }
            }
            const LONG step = std::min(count - done, m_nEnd - m_nNext);
            std::memcpy(destination + done, m_buffer.data() + m_nNext, static_cast<std::size_t>(step));
            m_nNext += step;
            done += step;
        }
        return done;
    }

    bool readWord(DWORD& word) {
        std::array<char, 4> bytes{};
        if (read(bytes.data(), 4) != 4) {
            return false;
        }
        word = readLittleEndian(bytes);
        return true;
    }

    void describe(MMIOINFO& info) {
        info.dwFlags = MMIO_ALLOCBUF;
        info.cchBuffer = BUFFER_SIZE;
        info.pchBuffer = m_buffer.data();
        info.pchNext = m_buffer.data() + m_nNext;
        info.pchEndRead = m_buffer.data() + m_nEnd;
        info.hmmio = this;
    }

    /// Takes over how far a client has read. False when the state is not one of this buffer.
    bool accept(const MMIOINFO& info) {
        const char* first = m_buffer.data();
        if (info.pchBuffer != first || info.pchEndRead != first + m_nEnd || info.pchNext < first ||
            info.pchNext > first + m_nEnd) {
            return false;
        }
        m_nNext = static_cast<LONG>(info.pchNext - first);
        return true;
    }

private:
    FilePointer m_file;
    std::int64_t m_nBufferStart = 0; ///< file offset of the buffer's first byte
    LONG m_nNext = 0;
    LONG m_nEnd = 0;
    std::array<char, BUFFER_SIZE> m_buffer;
};

namespace {

std::int64_t paddedEnd(const MMCKINFO& chunk) {
    return std::int64_t{chunk.dwDataOffset} + chunk.cksize + (chunk.cksize & 1U);
}

/// False at the end of the file and for a chunk that starts where 32 bits do not reach.
bool readChunkHead(CMultimediaFile& file, MMCKINFO& chunk) {
    chunk = MMCKINFO();
    if (!file.readWord(chunk.ckid) || !file.readWord(chunk.cksize) ||
        file.position() > std::numeric_limits<DWORD>::max()) {
        return false;
    }
    chunk.dwDataOffset = static_cast<DWORD>(file.position());
    const bool hasType = chunk.ckid == FOURCC_RIFF || chunk.ckid == FOURCC_LIST;
    return !hasType || file.readWord(chunk.fccType);
}

} // namespace

HMMIO mmioOpenA(LPSTR path, LPMMIOINFO info, DWORD flags) {
    std::error_code error;
    // A pipe or a device would make the caller wait; a folder opens and then reads nothing.
    if (path == nullptr || info != nullptr || flags != (MMIO_ALLOCBUF | MMIO_READ) ||
        !std::filesystem::is_regular_file(path, error)) {
        return nullptr;
    }
    FilePointer file(std::fopen(path, "rb"));
    if (!file) {
        return nullptr;
    }
    std::setvbuf(file.get(), nullptr, _IONBF, 0); // the one buffer is ours
    return std::make_unique<CMultimediaFile>(std::move(file)).release();
}

MMRESULT mmioClose(HMMIO file, UINT /*flags*/) {
    if (file == nullptr) {
        return MMSYSERR_INVALHANDLE;
    }
    const std::unique_ptr<CMultimediaFile> owned(file);
    return MMSYSERR_NOERROR;
}

LONG mmioRead(HMMIO file, HPSTR destination, LONG count) {
    if (file == nullptr || destination == nullptr || count < 0) {
        return -1;
    }
    return file->read(destination, count);
}

LONG mmioSeek(HMMIO file, LONG offset, int origin) {
    if (file == nullptr || offset < 0 || origin != SEEK_SET) {
        return -1;
    }
    file->moveTo(offset);
    return offset;
}

MMRESULT mmioDescend(HMMIO file, LPMMCKINFO chunk, const MMCKINFO* parent, UINT flags) {
    if (file == nullptr) {
        return MMSYSERR_INVALHANDLE;
    }
    if (chunk == nullptr || (flags != 0 && flags != MMIO_FINDCHUNK)) {
        return MMSYSERR_INVALPARAM;
    }
    const std::int64_t end = parent != nullptr ? std::int64_t{parent->dwDataOffset} + parent->cksize
                                               : std::numeric_limits<std::int64_t>::max();
    MMCKINFO found{};
    while (file->position() < end && readChunkHead(*file, found)) {
        if (flags == 0 || found.ckid == chunk->ckid) {
            *chunk = found;
            return MMSYSERR_NOERROR;
        }
        file->moveTo(paddedEnd(found));
    }
    return MMIOERR_CHUNKNOTFOUND;
}

MMRESULT mmioAscend(HMMIO file, LPMMCKINFO chunk, UINT /*flags*/) {
    if (file == nullptr) {
        return MMSYSERR_INVALHANDLE;
    }
    if (chunk == nullptr) {
        return MMSYSERR_INVALPARAM;
    }
    const std::int64_t end = paddedEnd(*chunk);
    if (end > std::numeric_limits<LONG>::max()) {
        return MMIOERR_CANNOTSEEK;
    }
    file->moveTo(end);
    return MMSYSERR_NOERROR;
}

MMRESULT mmioGetInfo(HMMIO file, LPMMIOINFO info, UINT /*flags*/) {
    if (file == nullptr) {
        return MMSYSERR_INVALHANDLE;
    }
    if (info == nullptr) {
        return MMSYSERR_INVALPARAM;
    }
    file->describe(*info);
    return MMSYSERR_NOERROR;
}

MMRESULT mmioAdvance(HMMIO file, LPMMIOINFO info, UINT flags) {
    if (file == nullptr) {
        return MMSYSERR_INVALHANDLE;
    }
    if (info == nullptr || flags != MMIO_READ || !file->accept(*info)) {
        return MMSYSERR_INVALPARAM;
    }
    file->refill();
    file->describe(*info);
    return MMSYSERR_NOERROR;
}

MMRESULT mmioSetInfo(HMMIO file, const MMIOINFO* info, UINT /*flags*/) {
    if (file == nullptr) {
        return MMSYSERR_INVALHANDLE;
    }
    return info != nullptr && file->accept(*info) ? MMSYSERR_NOERROR : MMSYSERR_INVALPARAM;
}
