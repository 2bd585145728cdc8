#include "tests/outofmemory/failingcount.h"
#include <cstdlib>
#include <new>

// The plain heap, which the sanitizers watch.

namespace {

void* Allocate(std::size_t size) {
    return FailsNow() ? nullptr : Counted(std::malloc(size ? size : 1));
}

void* AllocateAligned(std::size_t size, std::align_val_t alignment) {
    const auto unit = static_cast<std::size_t>(alignment);
    const std::size_t whole = (size / unit + 1) * unit;
    return FailsNow() ? nullptr : Counted(std::aligned_alloc(unit, whole));
}

void* OrThrow(void* memory) {
    if (!memory) throw std::bad_alloc();
    return memory;
}

void Free(void* memory) {
    CountFree(memory);
    std::free(memory);
}

}  // namespace

void* operator new(std::size_t size) {
    return OrThrow(Allocate(size));
}
void* operator new[](std::size_t size) {
    return OrThrow(Allocate(size));
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return Allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return Allocate(size);
}
void* operator new(std::size_t size, std::align_val_t alignment) {
    return OrThrow(AllocateAligned(size, alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
    return OrThrow(AllocateAligned(size, alignment));
}

void operator delete(void* memory) noexcept {
    Free(memory);
}
void operator delete[](void* memory) noexcept {
    Free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    Free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    Free(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
    Free(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    Free(memory);
}
void operator delete(void* memory, std::align_val_t) noexcept {
    Free(memory);
}
void operator delete[](void* memory, std::align_val_t) noexcept {
    Free(memory);
}
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept {
    Free(memory);
}
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept {
    Free(memory);
}

// SimpleIni loses the text that it parses when one of its maps gets no memory.
extern "C" const char* __lsan_default_suppressions();  // NOLINT(bugprone-reserved-identifier)
extern "C" const char* __lsan_default_suppressions() {
    return "leak:CSimpleIniTempl";
}
