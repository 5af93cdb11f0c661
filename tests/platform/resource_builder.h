#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

/// Writes little-endian bytes one after another, to make resources as another tool would write them.
class CResourceBuilder {
public:
    CResourceBuilder& u8(std::uint32_t value) { return number(value, 1); }
    CResourceBuilder& u16(std::uint32_t value) { return number(value, 2); }
    CResourceBuilder& u32(std::uint32_t value) { return number(value, 4); }
    CResourceBuilder& ordinal(std::uint32_t value) { return u16(0xFFFF).u16(value); }
    CResourceBuilder& text(std::u16string_view units) {
        for (const char16_t unit : units) {
            u16(unit);
        }
        return u16(0);
    }
    CResourceBuilder& fill(std::size_t count, std::uint8_t value) {
        m_bytes.insert(m_bytes.end(), count, std::byte{value});
        return *this;
    }
    CResourceBuilder& align() {
        m_bytes.resize((m_bytes.size() + 3) / 4 * 4);
        return *this;
    }

    const std::vector<std::byte>& bytes() const { return m_bytes; }

private:
    CResourceBuilder& number(std::uint32_t value, int count) {
        for (int i = 0; i < count; ++i) {
            m_bytes.push_back(static_cast<std::byte>(value >> 8 * i & 0xFF));
        }
        return *this;
    }

    std::vector<std::byte> m_bytes;
};
