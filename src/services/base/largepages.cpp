#include "services/base/largepages.h"

#ifndef _WIN32
#include <sys/mman.h>
#endif

void* AllocateLargePages(std::size_t size) {
    void* const memory = ::operator new (size, std::align_val_t{kLargePageSize});
#ifndef _WIN32
    // Where that is not possible, small pages serve as well.
    madvise(memory, size / kLargePageSize * kLargePageSize, MADV_HUGEPAGE);
#endif
    return memory;
}

void FreeLargePages(void* memory) {
    ::operator delete (memory, std::align_val_t{kLargePageSize});
}
