#pragma once
#include <cstddef>
#include <expat.h>

/// What the allocations of all threads go through in this program. There is one of them: over the
/// plain heap it replaces operator new, else it stands in front of the shared heap's allocation.
class FailingHeap {
public:
    /// The allocation of that number, from 1 on and from now on, fails; with `forever` every later
    /// one, too.
    static void FailAt(std::size_t number, bool forever);
    /// No allocation fails any more. How many there were since FailAt().
    static std::size_t Stop();
    /// The same for what Expat allocates.
    static const XML_Memory_Handling_Suite& GetExpatMemory();
    /// How many allocations are not freed.
    static std::ptrdiff_t GetLiveCount();
};
