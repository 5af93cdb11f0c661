#include "sound/wave_bytes.h"

#include <cstring>
#include <random>

namespace wave {

Bytes word16(unsigned value) {
    return {static_cast<BYTE>(value & 0xFFU), static_cast<BYTE>(value >> 8U & 0xFFU)};
}

Bytes word32(std::uint32_t value) {
    return word16(value & 0xFFFFU) + word16(value >> 16U);
}

Bytes operator+(Bytes left, const Bytes& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

Bytes chunk(std::string_view id, const Bytes& content) {
    const Bytes pad(content.size() % 2, 0);
    return lyingChunk(id, static_cast<std::uint32_t>(content.size()), content) + pad;
}

Bytes lyingChunk(std::string_view id, std::uint32_t size, const Bytes& content) {
    return Bytes(id.begin(), id.end()) + word32(size) + content;
}

Bytes riff(const Bytes& chunks, std::string_view form) {
    return lyingChunk("RIFF", static_cast<std::uint32_t>(chunks.size() + 4),
                      Bytes(form.begin(), form.end())) +
           chunks;
}

Bytes riffOfSize(std::uint32_t size, const Bytes& chunks) {
    return lyingChunk("RIFF", size, {'W', 'A', 'V', 'E'}) + chunks;
}

Bytes format(unsigned channels, std::uint32_t rate, unsigned bits, unsigned tag) {
    const unsigned align = channels * bits / 8;
    return word16(tag) + word16(channels) + word32(rate) + word32(rate * align) + word16(align) +
           word16(bits);
}

Bytes extensibleFormat(unsigned channels, std::uint32_t rate, unsigned bits) {
    const Bytes subFormat = {1, 0, 0, 0, 0, 0, 0x10, 0, 0x80, 0, 0, 0xAA, 0, 0x38, 0x9B, 0x71};
    return format(channels, rate, bits, WAVE_FORMAT_EXTENSIBLE) + word16(22) + word16(bits) + word32(0) +
           subFormat;
}

Bytes file(const Bytes& formatBlock, const Bytes& data) {
    return riff(chunk("fmt ", formatBlock) + chunk("data", data));
}

Bytes bytesOf(const std::vector<std::int16_t>& samples) {
    Bytes bytes(samples.size() * sizeof(std::int16_t));
    std::memcpy(bytes.data(), samples.data(), bytes.size());
    return bytes;
}

std::string_view textOf(const Bytes& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::vector<std::int16_t> noise(std::size_t count, unsigned seed) {
    std::mt19937 generator(seed);
    std::vector<std::int16_t> samples(count);
    for (std::int16_t& sample : samples) {
        const auto bits = static_cast<std::uint32_t>(generator());
        const bool extreme = (bits >> 16U) % 16 == 0;
        const int end = (bits & 1U) != 0 ? 32767 : -32768;
        sample = extreme ? static_cast<std::int16_t>(end) : static_cast<std::int16_t>(bits & 0xFFFFU);
    }
    return samples;
}

} // namespace wave
