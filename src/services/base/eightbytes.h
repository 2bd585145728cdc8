#pragma once
#include <cstdint>
#include <cstring>

// Texts eight bytes at a time: a word holds them, and a test of all of them is one of the word.

/// Times a byte: that byte at all eight places.
inline constexpr std::uint64_t kEveryByte = 0x0101010101010101;
/// The highest bit of each byte.
inline constexpr std::uint64_t kTopBits = kEveryByte * 0x80;

/// The eight bytes from `bytes` on, whatever their address.
inline std::uint64_t LoadEightBytes(const char* bytes) {
    std::uint64_t word;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}
