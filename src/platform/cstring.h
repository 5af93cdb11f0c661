#pragma once

#include <cctype>
#include <cstdarg>
#include <cstdio>
#include <string>
#include <utility>

/// The framework's text class: a zero-terminated UTF-8 text with value semantics. Wholly inline, so that a
/// host can build one without linking anything.
class CString {
public:
    CString() = default;
    CString(const char* text) : m_text(text != nullptr ? text : "") {} // implicit, as the framework's is

    operator const char*() const { return m_text.c_str(); }
    const char* GetString() const { return m_text.c_str(); }
    /// Length in bytes.
    int GetLength() const { return static_cast<int>(m_text.size()); }
    bool IsEmpty() const { return m_text.empty(); }
    void Empty() { m_text.clear(); }

    /// Replace the text as printf would write it.
    [[gnu::format(printf, 2, 3)]] void Format(const char* format, ...) {
        std::va_list arguments;
        va_start(arguments, format);
        std::va_list measured;
        va_copy(measured, arguments);
        const int length = std::vsnprintf(nullptr, 0, format, measured);
        va_end(measured);
        std::string text(length > 0 ? static_cast<std::size_t>(length) : 0U, '\0');
        if (length > 0) {
            std::vsnprintf(text.data(), text.size() + 1, format, arguments);
        }
        va_end(arguments);
        m_text = std::move(text);
    }

    CString& operator+=(const char* text) {
        m_text += text != nullptr ? text : "";
        return *this;
    }
    friend CString operator+(CString left, const char* right) { return left += right; }
    friend bool operator==(const CString& a, const CString& b) { return a.m_text == b.m_text; }
    friend bool operator==(const CString& a, const char* b) { return a.m_text == (b != nullptr ? b : ""); }

private:
    std::string m_text;
};
