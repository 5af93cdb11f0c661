#pragma once

#include <algorithm>
#include <string>
#include <string_view>

/// When two names of files, textures or sounds differ in letter case only, they are one name. The rule is the
/// same everywhere and knows no locale: A to Z count as a to z, and every other byte stands for itself (what
/// a locale or a file system makes of further letters is not the same on two machines).

constexpr char foldCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

inline std::string foldCase(std::string_view name) {
    std::string folded(name);
    std::ranges::transform(folded, folded.begin(), [](char c) { return foldCase(c); });
    return folded;
}

constexpr bool isSameName(std::string_view a, std::string_view b) {
    return std::ranges::equal(
        a, b, {}, [](char c) { return foldCase(c); }, [](char c) { return foldCase(c); });
}
