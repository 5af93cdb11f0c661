#include "sound/wave_reader.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <new>

namespace {

constexpr FOURCC ID_WAVE = mmioFOURCC('W', 'A', 'V', 'E');
constexpr FOURCC ID_FMT = mmioFOURCC('f', 'm', 't', ' ');
constexpr FOURCC ID_DATA = mmioFOURCC('d', 'a', 't', 'a');

constexpr LONG PCM_FORMAT_SIZE = offsetof(WAVEFORMATEX, cbSize);

bool readExactly(HMMIO file, void* destination, LONG count) {
    return mmioRead(file, static_cast<HPSTR>(destination), count) == count;
}

/// The block's 18 bytes and its extra bytes; null when there is no memory.
std::unique_ptr<BYTE[]> makeFormatBlock(const WAVEFORMATEX& format, const BYTE* extra) {
    std::unique_ptr<BYTE[]> block(new (std::nothrow) BYTE[sizeof format + format.cbSize]);
    if (block) {
        std::memcpy(block.get(), &format, sizeof format);
        std::memcpy(block.get() + sizeof format, extra, format.cbSize);
    }
    return block;
}

} // namespace

CWaveReader::~CWaveReader() {
    if (m_hFile != nullptr) {
        close();
    }
}

HRESULT CWaveReader::open(const char* path) {
    close();
    m_pFormat.reset();
    // Takes a path it may write to, which it does not when it only opens.
    m_hFile = mmioOpenA(const_cast<LPSTR>(path), nullptr, MMIO_ALLOCBUF | MMIO_READ);
    if (m_hFile == nullptr) {
        return E_FAIL;
    }
    if (const HRESULT result = readFormat(); FAILED(result)) {
        close();
        return result;
    }
    return reset();
}

HRESULT CWaveReader::reset() {
    const LONG behindType = static_cast<LONG>(m_riffChunk.dwDataOffset + sizeof(FOURCC));
    if (mmioSeek(m_hFile, behindType, SEEK_SET) == -1) {
        return E_FAIL;
    }
    m_dataChunk.ckid = ID_DATA;
    if (mmioDescend(m_hFile, &m_dataChunk, &m_riffChunk, MMIO_FINDCHUNK) != MMSYSERR_NOERROR) {
        return E_FAIL;
    }
    return S_OK;
}

HRESULT CWaveReader::read(DWORD count, BYTE* dest, DWORD* outRead) {
    *outRead = 0;
    MMIOINFO buffer{};
    if (mmioGetInfo(m_hFile, &buffer, 0) != MMSYSERR_NOERROR) {
        return E_FAIL;
    }
    const DWORD wanted = std::min(count, m_dataChunk.cksize);
    m_dataChunk.cksize -= wanted;
    for (DWORD done = 0; done < wanted;) {
        if (buffer.pchNext == buffer.pchEndRead &&
            (mmioAdvance(m_hFile, &buffer, MMIO_READ) != MMSYSERR_NOERROR ||
             buffer.pchNext == buffer.pchEndRead)) {
            return E_FAIL;
        }
        const auto step = std::min(wanted - done, static_cast<DWORD>(buffer.pchEndRead - buffer.pchNext));
        std::memcpy(dest + done, buffer.pchNext, step);
        buffer.pchNext += step;
        done += step;
    }
    if (mmioSetInfo(m_hFile, &buffer, 0) != MMSYSERR_NOERROR) {
        return E_FAIL;
    }
    *outRead = wanted;
    return S_OK;
}

HRESULT CWaveReader::close() {
    mmioClose(m_hFile, 0);
    m_hFile = nullptr;
    return S_OK;
}

HRESULT CWaveReader::readFormat() {
    if (mmioDescend(m_hFile, &m_riffChunk, nullptr, 0) != MMSYSERR_NOERROR ||
        m_riffChunk.ckid != FOURCC_RIFF || m_riffChunk.fccType != ID_WAVE) {
        return E_FAIL;
    }
    MMCKINFO chunk{};
    chunk.ckid = ID_FMT;
    if (mmioDescend(m_hFile, &chunk, &m_riffChunk, MMIO_FINDCHUNK) != MMSYSERR_NOERROR ||
        chunk.cksize < DWORD{PCM_FORMAT_SIZE} || FAILED(readFormatBlock())) {
        return E_FAIL;
    }
    if (mmioAscend(m_hFile, &chunk, 0) != MMSYSERR_NOERROR) {
        m_pFormat.reset();
        return E_FAIL;
    }
    return S_OK;
}

/// The extra bytes are read before there is a block for them, so that a file which does not hold what it
/// announces makes none.
HRESULT CWaveReader::readFormatBlock() {
    WAVEFORMATEX format{};
    if (!readExactly(m_hFile, &format, PCM_FORMAT_SIZE)) {
        return E_FAIL;
    }
    std::array<BYTE, 0xFFFF> extra;
    if (format.wFormatTag != WAVE_FORMAT_PCM &&
        (!readExactly(m_hFile, &format.cbSize, sizeof format.cbSize) ||
         !readExactly(m_hFile, extra.data(), format.cbSize))) {
        return E_FAIL;
    }
    m_pFormat = makeFormatBlock(format, extra.data());
    return m_pFormat ? S_OK : E_FAIL;
}
