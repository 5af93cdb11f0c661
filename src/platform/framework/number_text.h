#pragma once

#include <string>
#include <string_view>

// Numbers as the data exchange reads and writes them: a decimal point whatever the locale says.

/// Reads a number with blanks and tabs around it; the value stays when the text is anything else. Integers
/// beyond the type's limits become the nearer limit.
bool readNumber(std::string_view text, int& value);
bool readNumber(std::string_view text, float& value);

std::string writeNumber(int value);
/// Six significant digits, without trailing zeros.
std::string writeNumber(float value);
