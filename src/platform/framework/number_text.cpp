#include "platform/framework/number_text.h"

#include <array>
#include <charconv>
#include <limits>

namespace {

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view BLANKS = " \t";
    const std::size_t first = text.find_first_not_of(BLANKS);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(BLANKS) - first + 1);
}

/// The text without a plus sign in front of its number.
std::string_view unsignedPlus(std::string_view text) {
    const bool plus = text.size() > 1 && text.front() == '+' && text[1] != '-';
    return plus ? text.substr(1) : text;
}

template <class Integer> bool readInteger(std::string_view text, Integer& value) {
    const std::string_view digits = unsignedPlus(trimmed(text));
    const char* const end = digits.data() + digits.size();
    Integer read = 0;
    const auto [stop, error] = std::from_chars(digits.data(), end, read);
    if (stop != end || digits.empty() || error == std::errc::invalid_argument) {
        return false;
    }
    if (error == std::errc::result_out_of_range) {
        using Limits = std::numeric_limits<Integer>;
        read = digits.front() == '-' ? Limits::min() : Limits::max();
    }
    value = read;
    return true;
}

template <class Real> bool readReal(std::string_view text, Real& value) {
    const std::string_view number = unsignedPlus(trimmed(text));
    // from_chars knows the words for infinity and not-a-number; a person types neither.
    if (number.find_first_not_of("0123456789+-.eE") != std::string_view::npos) {
        return false;
    }
    const char* const end = number.data() + number.size();
    Real read = 0;
    const auto [stop, error] = std::from_chars(number.data(), end, read);
    if (stop != end || error != std::errc()) {
        return false;
    }
    value = read;
    return true;
}

template <class Number, class... Format> std::string write(Number value, Format... format) {
    std::array<char, 64> text{};
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value, format...);
    return error == std::errc() ? std::string(text.data(), end) : std::string();
}

} // namespace

bool readNumber(std::string_view text, int& value) {
    return readInteger(text, value);
}
bool readNumber(std::string_view text, float& value) {
    return readReal(text, value);
}

std::string writeNumber(int value) {
    return write(value);
}
std::string writeNumber(float value) {
    return write(value, std::chars_format::general, std::numeric_limits<float>::digits10);
}
