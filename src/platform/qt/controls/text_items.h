#pragma once

#include "platform/windows_types.h"

#include <QString>

#include <algorithm>
#include <cstring>

namespace qtbackend {

inline QString toText(LPARAM text) {
    return QString::fromUtf8(reinterpret_cast<const char*>(text));
}

/// Copies an item's text with its terminating zero to where the message's buffer is; its length in bytes.
inline LRESULT copyItemText(const QString& text, LPARAM buffer) {
    const QByteArray bytes = text.toUtf8();
    std::memcpy(reinterpret_cast<char*>(buffer), bytes.constData(),
                static_cast<std::size_t>(bytes.size()) + 1);
    return bytes.size();
}

/// Letter case aside, for A to Z: what a locale makes of further letters is not the same on two machines.
inline bool beginsWith(const QString& text, const QString& prefix) {
    const auto folded = [](QChar c) {
        return c >= QLatin1Char('A') && c <= QLatin1Char('Z') ? c.toLower() : c;
    };
    return text.size() >= prefix.size() &&
           std::equal(prefix.begin(), prefix.end(), text.begin(),
                      [&folded](QChar a, QChar b) { return folded(a) == folded(b); });
}

/// Where a text belongs among `count` sorted ones: behind those that are not greater, letter case aside.
template <class TextAt> int sortedIndex(const QString& text, int count, TextAt textAt) {
    int index = 0;
    while (index < count && QString::compare(textAt(index), text, Qt::CaseInsensitive) <= 0) {
        ++index;
    }
    return index;
}

} // namespace qtbackend
