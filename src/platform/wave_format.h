#pragma once

#include "platform/com.h"

inline constexpr WORD WAVE_FORMAT_PCM = 1;
inline constexpr WORD WAVE_FORMAT_EXTENSIBLE = 0xFFFE;

#pragma pack(push, 1)

/// How samples are stored, as it stands in a WAV file: no padding, any alignment. A file's PCM format ends
/// before cbSize; any other is followed by cbSize extra bytes.
struct WAVEFORMATEX {
    WORD wFormatTag;
    WORD nChannels;
    DWORD nSamplesPerSec;  ///< frames a second
    DWORD nAvgBytesPerSec; ///< of the data as stored
    WORD nBlockAlign;      ///< bytes of a frame
    WORD wBitsPerSample;
    WORD cbSize;
};

/// WAVE_FORMAT_EXTENSIBLE: the real format is told by SubFormat. Its cbSize is 22.
struct WAVEFORMATEXTENSIBLE {
    WAVEFORMATEX Format;
    WORD wValidBitsPerSample;
    DWORD dwChannelMask;
    GUID SubFormat;
};

#pragma pack(pop)

static_assert(sizeof(WAVEFORMATEX) == 18 && sizeof(WAVEFORMATEXTENSIBLE) == 40);

inline constexpr GUID KSDATAFORMAT_SUBTYPE_PCM{
    0x00000001, 0x0000, 0x0010, {0x80, 0x00, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71}};
