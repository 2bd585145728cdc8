#pragma once
#include "services/base/api.h"
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// "Ignoring case" in one place, for equality and hash alike: ASCII letters fold, every other byte
// compares as it is, and the process locale has no say.

constexpr char FoldChar(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
std::string FoldCase(std::string_view text);
bool EqualIgnoringCase(std::string_view a, std::string_view b);
/// The hash of FoldCase(text), without making it.
std::size_t HashIgnoringCase(std::string_view text);
/// Where a table of `size` places, at most 2^32, begins to look for a hash: it may have any size.
constexpr std::size_t PlaceOfHash(std::uint32_t hash, std::size_t size) {
    // The highest bits decide, on which all others have to act: the hashes of numbered names are
    // close together.
    const std::uint64_t spread = hash * 0x9E3779B97F4A7C15U >> 32U;
    return static_cast<std::size_t>(spread * size >> 32U);
}

constexpr bool IsDecimalDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The number that `text` begins with, as atoi reads it (white space and one sign allowed, 0 for a
/// text that is none), clamped to the range of int.
int LeadingNumber(std::string_view text);

/// `text` without blank, \t, \n, \v, \f and \r at both ends.
std::string_view TrimmedView(std::string_view text);
