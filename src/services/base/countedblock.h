#pragma once
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <utility>

/// A block of memory that is given away in parts, front to back, by one thread, and frees itself
/// when it is closed and every part is back. Parts come back from any thread.
///
/// A part begins with a TDistance, its distance from the block's beginning in units of 8 bytes, as
/// long as its memory is in use.
class TCountedBlock {
public:
    using TDistance = std::uint16_t;
    static constexpr std::size_t kUnit = 8;

    /// A block with room for `size` bytes, aligned to kUnit.
    static TCountedBlock* Make(std::size_t size);
    std::byte* GetRoom() { return reinterpret_cast<std::byte*>(this + 1); }

    /// Of a part in the first 512 KiB; never 0.
    TDistance GetDistance(const void* part) const {
        const std::ptrdiff_t distance =
            static_cast<const std::byte*>(part) - reinterpret_cast<const std::byte*>(this);
        return static_cast<TDistance>(static_cast<std::size_t>(distance) / kUnit);
    }
    /// No more parts will be given away: in all it was `given`. What was not is never used.
    void Close(std::uint32_t given);

    static TCountedBlock* Of(const void* part) {
        const std::size_t distance = *static_cast<const TDistance*>(part) * kUnit;
        auto* const begin = static_cast<std::byte*>(const_cast<void*>(part)) - distance;
        return reinterpret_cast<TCountedBlock*>(begin);
    }
    void GiveBack(std::uint32_t parts);

private:
    TCountedBlock() = default;

    // Parts that may be out. An open block counts as if all that it can ever give were.
    static constexpr std::uint32_t kOpen = std::uint32_t{1} << 31;
    alignas(kUnit) std::atomic<std::uint32_t> PartsOut = kOpen;
};

/// Gives parts back: those of one block that come one after the other at one stroke.
class TReturnedParts {
public:
    TReturnedParts() = default;
    TReturnedParts(const TReturnedParts&) = delete;
    TReturnedParts& operator=(const TReturnedParts&) = delete;
    ~TReturnedParts() { Flush(); }

    void Add(const void* part) {
        TCountedBlock* const block = TCountedBlock::Of(part);
        if (block != Block) Flush();
        Block = block;
        ++Parts;
    }

private:
    void Flush() {
        if (Block) Block->GiveBack(std::exchange(Parts, 0));
    }
    TCountedBlock* Block = nullptr;
    std::uint32_t Parts = 0;
};
