#pragma once
#include "projectfiles/sourcename.h"
#include <cstddef>
#include <utility>
#include <vector>

/// Finds a value by the name of a source. Slots in one piece of memory: a build asks for a million
/// names, and each step into a node of its own would miss the cache.
template <class TValue>
class TSourceNameTable {
public:
    /// Null when the name is not in the table. Valid until the table changes.
    TValue* Find(const TSourceName& name) {
        if (Slots.empty()) return nullptr;
        TSlot& slot = Slots[SlotOf(name)];
        return slot.IsUsed() ? &slot.Value : nullptr;
    }
    const TValue* Find(const TSourceName& name) const {
        return const_cast<TSourceNameTable*>(this)->Find(name);
    }
    /// The value of `name`, not that of no file, and whether it was put in now.
    std::pair<TValue*, bool> Add(const TSourceName& name, const TValue& value) {
        if ((Count + 1) * 4 > Slots.size() * 3) Resize(Slots.empty() ? 16 : Slots.size() * 2);
        TSlot& slot = Slots[SlotOf(name)];
        if (slot.IsUsed()) return {&slot.Value, false};
        slot = {name, value};
        ++Count;
        return {&slot.Value, true};
    }
    /// Does nothing when the name is not in the table.
    void Remove(const TSourceName& name);
    /// Frees the memory, too.
    void Clear() {
        Slots = {};
        Count = 0;
    }
    /// Makes room for so many names in all.
    void Reserve(std::size_t count) {
        std::size_t size = 16;
        while (count * 4 > size * 3) size *= 2;
        if (size > Slots.size()) Resize(size);
    }

private:
    struct TSlot {
        TSourceName Name;
        TValue Value{};
        bool IsUsed() const { return !Name.IsNone(); }
    };
    std::size_t After(std::size_t slot) const { return (slot + 1) & (Slots.size() - 1); }
    /// The slot of `name`, or the free one where it belongs. The table must have a free slot.
    std::size_t SlotOf(const TSourceName& name) const {
        std::size_t slot = name.GetHash() & (Slots.size() - 1);
        while (Slots[slot].IsUsed() && !(Slots[slot].Name == name)) slot = After(slot);
        return slot;
    }
    void Resize(std::size_t size) {
        const std::vector<TSlot> former = std::exchange(Slots, std::vector<TSlot>(size));
        for (const TSlot& slot : former)
            if (slot.IsUsed()) Slots[SlotOf(slot.Name)] = slot;
    }

    std::vector<TSlot> Slots;  // none or a power of two, never more than three quarters in use
    std::size_t Count = 0;
};

template <class TValue>
void TSourceNameTable<TValue>::Remove(const TSourceName& name) {
    if (Slots.empty()) return;
    std::size_t hole = SlotOf(name);
    if (!Slots[hole].IsUsed()) return;
    --Count;
    // A name is looked for from its own slot up to the next free one: those behind the hole move up
    // unless that would take them in front of their slot.
    const std::size_t mask = Slots.size() - 1;
    for (std::size_t slot = After(hole); Slots[slot].IsUsed(); slot = After(slot)) {
        const std::size_t distance = (slot - Slots[slot].Name.GetHash()) & mask;
        if (distance < ((slot - hole) & mask)) continue;
        Slots[hole] = Slots[slot];
        hole = slot;
    }
    Slots[hole] = {};
}
