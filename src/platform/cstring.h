#pragma once

#include <algorithm>
#include <cctype>
#include <cstdarg>
#include <cstdio>
#include <string>
#include <utility>

/// The framework's text class: a zero-terminated UTF-8 text with value semantics. Wholly inline, so that a
/// host can build one without linking anything. Positions and lengths count bytes; -1 tells of nothing found.
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
    char GetAt(int index) const { return m_strText.at(static_cast<std::size_t>(index)); }

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

    int Find(char wanted, int start = 0) const { return position(m_strText.find(wanted, from(start))); }
    int Find(const char* wanted, int start = 0) const {
        return position(m_strText.find(wanted, from(start)));
    }
    int ReverseFind(char wanted) const { return position(m_strText.rfind(wanted)); }

    /// Parts of the text; lengths beyond the end are cut.
    CString Left(int length) const { return of(m_strText.substr(0, from(length))); }
    CString Right(int length) const { return Mid(std::max(0, GetLength() - std::max(0, length))); }
    CString Mid(int start) const { return of(m_strText.substr(std::min(from(start), m_strText.size()))); }
    CString Mid(int start, int length) const { return Mid(start).Left(length); }

    /// Below, equal to or above 0 as this text comes before, with or after the other one.
    int Compare(const char* other) const { return m_strText.compare(other); }
    int CompareNoCase(const char* other) const { return lowered(m_strText).compare(lowered(other)); }

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
    static std::size_t from(int index) { return static_cast<std::size_t>(std::max(0, index)); }
    static int position(std::size_t found) {
        return found == std::string::npos ? -1 : static_cast<int>(found);
    }
    static CString of(std::string text) {
        CString made;
        made.m_strText = std::move(text);
        return made;
    }
    static std::string lowered(std::string text) {
        std::transform(text.begin(), text.end(), text.begin(),
                       [](unsigned char character) { return static_cast<char>(std::tolower(character)); });
        return text;
    }

    std::string m_strText;
};
