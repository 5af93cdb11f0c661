#pragma once

#include "platform/wave_format.h"

#include <cstdint>
#include <string_view>
#include <vector>

/// WAV files put together byte by byte.
namespace wave {

using Bytes = std::vector<BYTE>;

Bytes word16(unsigned value);
Bytes word32(std::uint32_t value);
Bytes operator+(Bytes left, const Bytes& right);

/// Id, size, content and the pad byte of an odd size.
Bytes chunk(std::string_view id, const Bytes& content);
/// A chunk that states another size than it has; no pad byte.
Bytes lyingChunk(std::string_view id, std::uint32_t size, const Bytes& content);
/// A RIFF file of the given form with the chunks as its content.
Bytes riff(const Bytes& chunks, std::string_view form = "WAVE");
Bytes riffOfSize(std::uint32_t size, const Bytes& chunks);

/// The first 16 bytes of a format block.
Bytes format(unsigned channels, std::uint32_t rate, unsigned bits, unsigned tag = WAVE_FORMAT_PCM);
/// The 40 bytes of an extensible format with PCM samples.
Bytes extensibleFormat(unsigned channels, std::uint32_t rate, unsigned bits);

/// An ordinary file: a format and a data chunk.
Bytes file(const Bytes& formatBlock, const Bytes& data);
Bytes bytesOf(const std::vector<std::int16_t>& samples);
/// The same bytes as a text, to be written to a file.
std::string_view textOf(const Bytes& bytes);
/// Reproducible samples over the whole range, both ends included.
std::vector<std::int16_t> noise(std::size_t count, unsigned seed);

} // namespace wave
