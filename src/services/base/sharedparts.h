#pragma once
#include <array>
#include <cstddef>
#include <cstdint>

// What all threads look up by a hash lies in parts, each with a lock of its own, so that they
// seldom wait for each other.

/// The parts of each kind.
inline constexpr std::size_t kSharedParts = 16;

/// The part of a hash: of its lowest bits. Never destroyed: parts are used until the very end of
/// the process.
template <class TPart>
TPart& GetSharedPart(std::size_t hash) {
    static auto& parts = *new std::array<TPart, kSharedParts>;
    return parts[hash % kSharedParts];
}

/// A hash of where an object is. The lowest bits of an address are the same for all.
inline std::size_t HashOfPlace(const void* object) {
    return reinterpret_cast<std::uintptr_t>(object) >> 6;
}
