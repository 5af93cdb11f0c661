#pragma once

#include "platform/windows_types.h"

// Buffered reading of files made of chunks (RIFF): a four-letter id, a 32-bit size, the content, and a pad
// byte when the size is odd. Sizes are taken as the file states them and are never trusted: nothing outside
// the file is read, and a search ends at the end of its parent or of the file.

using FOURCC = DWORD;
using MMRESULT = UINT;
using HPSTR = char*;
using HMMIO = class CMultimediaFile*;

inline constexpr MMRESULT MMSYSERR_NOERROR = 0;
inline constexpr MMRESULT MMSYSERR_INVALHANDLE = 5;
inline constexpr MMRESULT MMSYSERR_INVALPARAM = 11;
inline constexpr MMRESULT MMIOERR_CANNOTSEEK = 263;
inline constexpr MMRESULT MMIOERR_CHUNKNOTFOUND = 265;

inline constexpr DWORD MMIO_READ = 0x00000000;
inline constexpr DWORD MMIO_ALLOCBUF = 0x00010000;
inline constexpr UINT MMIO_FINDCHUNK = 0x0010;

constexpr FOURCC mmioFOURCC(char a, char b, char c, char d) {
    const auto byteOf = [](char letter) { return static_cast<FOURCC>(static_cast<BYTE>(letter)); };
    return byteOf(a) | byteOf(b) << 8U | byteOf(c) << 16U | byteOf(d) << 24U;
}
inline constexpr FOURCC FOURCC_RIFF = mmioFOURCC('R', 'I', 'F', 'F');
inline constexpr FOURCC FOURCC_LIST = mmioFOURCC('L', 'I', 'S', 'T');

/// One chunk. `dwDataOffset` is where its content starts in the file; for "RIFF" and "LIST" the content
/// starts with the form type.
struct MMCKINFO {
    FOURCC ckid;
    DWORD cksize;
    FOURCC fccType;
    DWORD dwDataOffset;
    DWORD dwFlags;
};
using LPMMCKINFO = MMCKINFO*;

/// The state of a file's buffer: the bytes from pchNext to before pchEndRead are the next ones of the file.
struct MMIOINFO {
    DWORD dwFlags;
    LONG cchBuffer;
    HPSTR pchBuffer;
    HPSTR pchNext;
    HPSTR pchEndRead;
    HMMIO hmmio;
};
using LPMMIOINFO = MMIOINFO*;

/// Opens a regular file for buffered reading; `info` is null, `flags` MMIO_ALLOCBUF | MMIO_READ. Null when it
/// cannot be opened. The caller closes it. The path is not written to.
HMMIO mmioOpenA(LPSTR path, LPMMIOINFO info, DWORD flags);
MMRESULT mmioClose(HMMIO file, UINT flags);

/// Reads up to `count` bytes; the number read, 0 at the end, -1 on an invalid argument.
LONG mmioRead(HMMIO file, HPSTR destination, LONG count);
/// Moves to `offset` from the start; `origin` is SEEK_SET. The new position, which may lie past the end, or -1.
LONG mmioSeek(HMMIO file, LONG offset, int origin);

/// Enters the chunk at the position, or with MMIO_FINDCHUNK the next one whose id is chunk->ckid. A search
/// starts at a chunk's head and ends with `parent`, if there is one. Leaves the position at the content,
/// for "RIFF" and "LIST" behind the form type.
MMRESULT mmioDescend(HMMIO file, LPMMCKINFO chunk, const MMCKINFO* parent, UINT flags);
/// Moves to the end of the chunk, its pad byte included.
MMRESULT mmioAscend(HMMIO file, LPMMCKINFO chunk, UINT flags);

/// Direct access to the buffer: take its state, consume bytes by moving pchNext, refill with mmioAdvance
/// (which at the end of the file leaves it empty), give the state back with mmioSetInfo.
MMRESULT mmioGetInfo(HMMIO file, LPMMIOINFO info, UINT flags);
MMRESULT mmioAdvance(HMMIO file, LPMMIOINFO info, UINT flags);
MMRESULT mmioSetInfo(HMMIO file, const MMIOINFO* info, UINT flags);
