#pragma once

#include "platform/wave_format.h"

#include <span>
#include <vector>

/// Walks the chunks of a WAV file held in memory. Each output is optional (null when not wanted) and points
/// into the image. True when everything asked for was found; otherwise the outputs hold what was found
/// before. A chunk that claims more than the image holds counts as long as what is there. The format block is
/// at least 14 bytes long and need not hold more: take it over with CWaveFormat.
bool parseWaveImage(std::span<BYTE> image, WAVEFORMATEX** outFormat, BYTE** outData, DWORD* outSize);

/// The format block that parseWaveImage found in `image`, with its extra bytes and zeroes where the chunk or
/// the image ends. Whoever reads cbSize bytes behind it stays inside.
class CWaveFormat {
public:
    CWaveFormat(std::span<const BYTE> image, const WAVEFORMATEX* found);

    WAVEFORMATEX& block() { return *reinterpret_cast<WAVEFORMATEX*>(m_bytes.data()); }

private:
    std::vector<BYTE> m_bytes;
};
