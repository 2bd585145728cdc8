#include "projectfiles/sourcenametable.h"
#include <utility>

namespace {

constexpr std::size_t kFirstSize = 4;

}  // namespace

const TSourceNameTable::TPlace* TSourceNameTable::Find(const TSourceName& name) const {
    if (Slots.empty()) return nullptr;
    const TSlot& slot = Slots[SlotOf(name)];
    return slot.IsUsed() ? &slot.Place : nullptr;
}

bool TSourceNameTable::Add(const TSourceName& name, TPlace place) {
    if ((Count + 1) * 4 > Slots.size() * 3) Grow();
    TSlot& slot = Slots[SlotOf(name)];
    if (slot.IsUsed()) return false;
    slot.Name = name;
    slot.Place = place;
    ++Count;
    return true;
}

void TSourceNameTable::Remove(const TSourceName& name) {
    if (Slots.empty()) return;
    std::size_t hole = SlotOf(name);
    if (!Slots[hole].IsUsed()) return;
    --Count;
    // A name is looked for from its own slot up to the next free one: those behind the hole move up
    // unless that would take them in front of their slot.
    const std::size_t mask = Slots.size() - 1;
    for (std::size_t slot = After(hole); Slots[slot].IsUsed(); slot = After(slot)) {
        const std::size_t distance = (slot - Slots[slot].Name.Hash) & mask;
        if (distance < ((slot - hole) & mask)) continue;
        Slots[hole] = Slots[slot];
        hole = slot;
    }
    Slots[hole] = {};
}

void TSourceNameTable::Clear() {
    Slots.clear();
    Count = 0;
}

std::size_t TSourceNameTable::SlotOf(const TSourceName& name) const {
    std::size_t slot = name.Hash & (Slots.size() - 1);
    while (Slots[slot].IsUsed() && !(Slots[slot].Name == name)) slot = After(slot);
    return slot;
}

void TSourceNameTable::Grow() {
    const std::vector<TSlot> former = std::exchange(Slots, {});
    Slots.resize(former.empty() ? kFirstSize : former.size() * 2);
    for (const TSlot& slot : former)
        if (slot.IsUsed()) Slots[SlotOf(slot.Name)] = slot;
}
