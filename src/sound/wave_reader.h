#pragma once

#include "platform/com.h"
#include "platform/multimedia_io.h"
#include "platform/wave_format.h"

#include <memory>

/// Reads one WAV file from disk, piece by piece. Used on the stack for one file at a time; owns the file and
/// the format block. Every failure is E_FAIL.
class CWaveReader {
public:
    CWaveReader() = default;
    ~CWaveReader();
    CWaveReader(const CWaveReader&) = delete;
    CWaveReader& operator=(const CWaveReader&) = delete;

    /// Opens the file at `path` (a full path), reads its header and positions at the first data byte.
    HRESULT open(const char* path);
    /// Positions at the first data byte again and resets the count of unread bytes.
    HRESULT reset();
    /// Copies up to `count` bytes of sample data to `dest`; their number goes to outRead, 0 at the end. A
    /// file that ends before its data chunk does is a failure.
    HRESULT read(DWORD count, BYTE* dest, DWORD* outRead);
    HRESULT close();

    /// The format with its cbSize extra bytes; null until a header was read. Valid until open.
    const WAVEFORMATEX* format() const { return reinterpret_cast<const WAVEFORMATEX*>(m_pFormat.get()); }
    /// The "data" chunk; cksize counts the bytes not yet read, as the file states them.
    const MMCKINFO& dataChunk() const { return m_dataChunk; }

private:
    HRESULT readFormat();
    HRESULT readFormatBlock();

    std::unique_ptr<BYTE[]> m_pFormat;
    HMMIO m_hFile = nullptr;
    MMCKINFO m_dataChunk{};
    MMCKINFO m_riffChunk{};
};
