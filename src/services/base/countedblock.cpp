#include "services/base/countedblock.h"

#include <new>

TCountedBlock* TCountedBlock::Make(std::size_t size) {
    return new (::operator new(sizeof(TCountedBlock) + size)) TCountedBlock;
}

void TCountedBlock::Close(std::uint32_t given) {
    GiveBack(kOpen - given);
}

void TCountedBlock::GiveBack(std::uint32_t parts) {
    // Whoever gives back the last part must see what others wrote into theirs before.
    if (PartsOut.fetch_sub(parts, std::memory_order_acq_rel) != parts) return;
    this->~TCountedBlock();
    ::operator delete(this);
}
