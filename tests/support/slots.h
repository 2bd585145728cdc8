#pragma once
#include <cstddef>
#include <cstring>

/// The entry of a virtual operation in the table it is called through, read from the representation
/// of a member pointer: one plus the offset of the entry. A virtual destructor in front takes two
/// entries of the table (complete and deleting), so in a class whose slot 0 is the destructor the
/// operation of slot n has entry n + 1.
template <class Operation>
std::ptrdiff_t TableEntryOf(Operation operation) {
    std::ptrdiff_t representation = 0;
    static_assert(sizeof operation >= sizeof representation);
    std::memcpy(&representation, &operation, sizeof representation);
    return (representation - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

/// The slot of an operation in a class whose slot 0 is the destructor.
template <class Operation>
std::ptrdiff_t SlotOf(Operation operation) {
    return TableEntryOf(operation) - 1;
}
