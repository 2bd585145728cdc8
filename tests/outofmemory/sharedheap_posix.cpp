#include "tests/outofmemory/failingcount.h"
#include <dlfcn.h>

// The shared heap: what a program defines stands in front of what a library defines, for the
// program and for all its libraries.

namespace {

template <class TFunction>
TFunction* Next(const char* name) {
    return reinterpret_cast<TFunction*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" {

void* scalable_malloc(std::size_t size) {
    static auto* const next = Next<void*(std::size_t)>("scalable_malloc");
    return FailsNow() ? nullptr : Counted(next(size));
}

void* scalable_aligned_malloc(std::size_t size, std::size_t alignment) {
    static auto* const next = Next<void*(std::size_t, std::size_t)>("scalable_aligned_malloc");
    return FailsNow() ? nullptr : Counted(next(size, alignment));
}

void scalable_free(void* memory) {
    static auto* const next = Next<void(void*)>("scalable_free");
    CountFree(memory);
    next(memory);
}

void scalable_aligned_free(void* memory) {
    static auto* const next = Next<void(void*)>("scalable_aligned_free");
    CountFree(memory);
    next(memory);
}
}
