#pragma once
#include <string_view>

constexpr bool IsDecimalDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The number that `text` begins with, as atoi reads it (white space and one sign allowed, 0 for a
/// text that is none), clamped to the range of int.
int LeadingNumber(std::string_view text);
