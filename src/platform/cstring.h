#pragma once

#include <cstdarg>
#include <cstdio>
#include <string>
#include <utility>

/// The framework's text class: a zero-terminated UTF-8 text with value semantics. Wholly inline, so that a
/// host can build one without linking anything. Lengths count bytes.
class CString {
public:
    CString() = default;
    CString(const char* text) : m_strText(text != nullptr ? text : "") {} // implicit, as the framework's is
    CString(const char* text, int length) : m_strText(text, static_cast<std::size_t>(length)) {}

    operator const char*() const { return m_strText.c_str(); }
    const char* GetString() const { return m_strText.c_str(); }
    int GetLength() const { return static_cast<int>(m_strText.size()); }
    bool IsEmpty() const { return m_strText.empty(); }
    void Empty() { m_strText.clear(); }

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
        m_strText = std::move(text);
    }

    CString& operator+=(const char* text) {
        m_strText += text != nullptr ? text : "";
        return *this;
    }
    CString& operator+=(char character) {
        m_strText += character;
        return *this;
    }
    friend CString operator+(CString left, const char* right) { return left += right; }
    friend bool operator==(const CString& a, const CString& b) { return a.m_strText == b.m_strText; }
    friend bool operator==(const CString& a, const char* b) { return a.m_strText == (b != nullptr ? b : ""); }

private:
    std::string m_strText;
};
