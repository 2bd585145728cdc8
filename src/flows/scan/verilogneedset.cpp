#include "flows/scan/verilogneedset.h"
#include <utility>

TVerilogNeedSet::TVerilogNeedSet() : Slots(64, kEmpty) {}

std::uint32_t TVerilogNeedSet::NumberOf(std::string_view text) {
    return Numbers.try_emplace(text, static_cast<std::uint32_t>(Numbers.size())).first->second;
}

/// Where the key is, or else where it belongs.
std::size_t TVerilogNeedSet::SlotOf(const TKey& key) const {
    constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15u;
    const std::uint64_t high = (std::uint64_t{key.Unit} << 32) | key.Name;
    const std::uint64_t low = (std::uint64_t{key.Library} << 32) | key.Kind;
    std::uint64_t hash = (high * kSpread) ^ low;
    hash = (hash ^ (hash >> 29)) * kSpread;
    auto slot = static_cast<std::size_t>(hash >> 32) & (Slots.size() - 1);
    while (!(Slots[slot] == key) && !(Slots[slot] == kEmpty))
        slot = (slot + 1) & (Slots.size() - 1);
    return slot;
}

void TVerilogNeedSet::Insert(const TKey& key) {
    if (++Count * 3 > Slots.size() * 2) {
        const std::vector<TKey> before =
            std::exchange(Slots, std::vector<TKey>(Slots.size() * 2, kEmpty));
        for (const TKey& old : before)
            if (!(old == kEmpty)) Slots[SlotOf(old)] = old;
    }
    Slots[SlotOf(key)] = key;
}
