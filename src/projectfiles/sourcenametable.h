#pragma once
#include "projectfiles/sourcename.h"
#include <cstddef>
#include <list>
#include <vector>

/// Finds the place of a source in a list by its name. Slots in one piece of memory: a compile order
/// asks for a million names, and each step into a node of its own would miss the cache.
class TSourceNameTable {
public:
    using TPlace = std::list<IHdlSourceFile*>::const_iterator;

    /// Null when the name is not in the table. Valid until the table changes.
    const TPlace* Find(const TSourceName& name) const;
    /// False, with the table unchanged, when the name is there already.
    bool Add(const TSourceName& name, TPlace place);
    /// Does nothing when the name is not in the table.
    void Remove(const TSourceName& name);
    void Clear();

    /// Calls `operation` with every name and its place, in no particular order.
    template <class TOperation>
    void ForEach(TOperation operation) const {
        for (const TSlot& slot : Slots)
            if (slot.IsUsed()) operation(slot.Name, slot.Place);
    }

private:
    struct TSlot {
        TSourceName Name{{}, 0};
        TPlace Place{};
        bool IsUsed() const { return Name.Folded.data() != nullptr; }
    };
    /// The slot of `name`, or the free one where it belongs. The table must have a free slot.
    std::size_t SlotOf(const TSourceName& name) const;
    std::size_t After(std::size_t slot) const { return (slot + 1) & (Slots.size() - 1); }
    void Grow();

    std::vector<TSlot> Slots;  // none or a power of two, never more than three quarters in use
    std::size_t Count = 0;
};
