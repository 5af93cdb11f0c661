#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

/// Reads little-endian data from front to back and never outside of it. The first read past the end marks the
/// reader as failed; from then on every read gives zero or nothing, so that callers check once at the end.
class CByteReader {
public:
    explicit CByteReader(std::span<const std::byte> data) : m_data(data) {}

    bool failed() const { return m_bFailed; }
    std::size_t position() const { return m_nPosition; }
    std::size_t remaining() const { return m_data.size() - m_nPosition; }

    std::uint8_t readU8() { return static_cast<std::uint8_t>(readLittleEndian(1)); }
    std::uint16_t readU16() { return static_cast<std::uint16_t>(readLittleEndian(2)); }
    std::uint32_t readU32() { return static_cast<std::uint32_t>(readLittleEndian(4)); }
    std::int16_t readI16() { return static_cast<std::int16_t>(readU16()); }
    std::int32_t readI32() { return static_cast<std::int32_t>(readU32()); }

    /// The next count bytes; empty after a failure.
    std::span<const std::byte> readBytes(std::size_t count);
    void skip(std::size_t count) { readBytes(count); }
    /// Moves on to the next multiple of four from the start of the data; the padding after the last item may
    /// be missing.
    void alignToDword();

    /// A zero-terminated UTF-16 text as UTF-8; half a surrogate pair becomes U+FFFD.
    std::string readUtf16Text();

private:
    std::uint32_t readLittleEndian(std::size_t count);

    std::span<const std::byte> m_data;
    std::size_t m_nPosition = 0;
    bool m_bFailed = false;
};

/// A name in a resource: a text or a number.
struct ResourceName {
    std::string text;
    int ordinal = -1; ///< -1 when the name is a text
};

/// Reads 0xFFFF and a number, or a zero-terminated text.
ResourceName readResourceName(CByteReader& reader);
