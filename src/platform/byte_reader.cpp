#include "platform/byte_reader.h"

#include <algorithm>

namespace {

constexpr std::uint16_t ORDINAL_MARK = 0xFFFF;
constexpr std::uint32_t REPLACEMENT_CHARACTER = 0xFFFD;

void appendUtf8(std::string& text, std::uint32_t codePoint) {
    const auto append = [&text](std::uint32_t byte) { text += static_cast<char>(byte); };
    if (codePoint < 0x80) {
        append(codePoint);
    } else if (codePoint < 0x800) {
        append(0xC0 | codePoint >> 6);
        append(0x80 | (codePoint & 0x3F));
    } else if (codePoint < 0x10000) {
        append(0xE0 | codePoint >> 12);
        append(0x80 | (codePoint >> 6 & 0x3F));
        append(0x80 | (codePoint & 0x3F));
    } else {
        append(0xF0 | codePoint >> 18);
        append(0x80 | (codePoint >> 12 & 0x3F));
        append(0x80 | (codePoint >> 6 & 0x3F));
        append(0x80 | (codePoint & 0x3F));
    }
}

bool isHighSurrogate(std::uint32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
bool isLowSurrogate(std::uint32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

} // namespace

std::span<const std::byte> CByteReader::readBytes(std::size_t count) {
    if (m_bFailed || count > remaining()) {
        m_bFailed = true;
        return {};
    }
    const auto bytes = m_data.subspan(m_nPosition, count);
    m_nPosition += count;
    return bytes;
}

std::uint32_t CByteReader::readLittleEndian(std::size_t count) {
    std::uint32_t value = 0;
    const auto bytes = readBytes(count);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        value |= std::to_integer<std::uint32_t>(bytes[i]) << 8 * i;
    }
    return value;
}

void CByteReader::alignToDword() {
    const std::size_t padding = (4 - m_nPosition % 4) % 4;
    m_nPosition += std::min(padding, remaining());
}

std::string CByteReader::readUtf16Text() {
    std::string text;
    std::uint32_t high = 0;
    for (std::uint32_t unit = readU16(); unit != 0; unit = readU16()) {
        if (high != 0 && isLowSurrogate(unit)) {
            appendUtf8(text, 0x10000 + ((high - 0xD800) << 10) + (unit - 0xDC00));
            high = 0;
            continue;
        }
        if (high != 0) {
            appendUtf8(text, REPLACEMENT_CHARACTER);
        }
        high = isHighSurrogate(unit) ? unit : 0;
        if (high == 0) {
            appendUtf8(text, isLowSurrogate(unit) ? REPLACEMENT_CHARACTER : unit);
        }
    }
    if (high != 0) {
        appendUtf8(text, REPLACEMENT_CHARACTER);
    }
    return text;
}

ResourceName readResourceName(CByteReader& reader) {
    CByteReader ahead = reader;
    if (ahead.readU16() == ORDINAL_MARK) {
        const int ordinal = ahead.readU16();
        reader = ahead;
        return {{}, ordinal};
    }
    return {reader.readUtf16Text(), -1};
}
