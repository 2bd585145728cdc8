// The global allocation functions, over TBB's scalable allocator. They are linked into every module
// that exchanges objects with the library, so that memory allocated in one can be freed in another.

#include <cstddef>
#include <new>
#include <tbb/scalable_allocator.h>

namespace {

/// Null when there is no memory, after the new-handler, if any, had its chances to free some.
template <class Allocate>
void* AllocateOrNull(Allocate allocate) {
    for (;;) {
        if (void* memory = allocate()) return memory;
        const auto handler = std::get_new_handler();
        if (!handler) return nullptr;
        handler();
    }
}

// An allocation of no bytes has an address of its own, too.
std::size_t AtLeastOne(std::size_t size) {
    return size ? size : 1;
}

void* Allocate(std::size_t size) {
    return AllocateOrNull([size] { return scalable_malloc(AtLeastOne(size)); });
}

void* AllocateAligned(std::size_t size, std::align_val_t alignment) {
    return AllocateOrNull([size, alignment] {
        return scalable_aligned_malloc(AtLeastOne(size), static_cast<std::size_t>(alignment));
    });
}

/// The forms that promise null keep it, even when the new-handler throws.
template <class Allocate>
void* WithoutThrowing(Allocate allocate) {
    try {
        return allocate();
    } catch (...) {
        return nullptr;
    }
}

void* OrThrow(void* memory) {
    return memory ? memory : throw std::bad_alloc();
}

}  // namespace

// What services/base/api.h refers to. Hidden, because each module needs this object of its own; a
// DLL keeps to itself what it does not export.
#ifndef _WIN32
#pragma GCC visibility push(hidden)
#endif
extern "C" {
extern const char hdlbuildfile_module_links_the_shared_heap;
const char hdlbuildfile_module_links_the_shared_heap = 1;
}
#ifndef _WIN32
#pragma GCC visibility pop
#endif

void* operator new(std::size_t size) {
    return OrThrow(Allocate(size));
}
void* operator new[](std::size_t size) {
    return OrThrow(Allocate(size));
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return WithoutThrowing([size] { return Allocate(size); });
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return WithoutThrowing([size] { return Allocate(size); });
}

void* operator new(std::size_t size, std::align_val_t alignment) {
    return OrThrow(AllocateAligned(size, alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
    return OrThrow(AllocateAligned(size, alignment));
}
void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    return WithoutThrowing([size, alignment] { return AllocateAligned(size, alignment); });
}
void* operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    return WithoutThrowing([size, alignment] { return AllocateAligned(size, alignment); });
}

void operator delete(void* memory) noexcept {
    scalable_free(memory);
}
void operator delete[](void* memory) noexcept {
    scalable_free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    scalable_free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    scalable_free(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
    scalable_free(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    scalable_free(memory);
}

void operator delete(void* memory, std::align_val_t) noexcept {
    scalable_aligned_free(memory);
}
void operator delete[](void* memory, std::align_val_t) noexcept {
    scalable_aligned_free(memory);
}
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept {
    scalable_aligned_free(memory);
}
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept {
    scalable_aligned_free(memory);
}
void operator delete(void* memory, std::align_val_t, const std::nothrow_t&) noexcept {
    scalable_aligned_free(memory);
}
void operator delete[](void* memory, std::align_val_t, const std::nothrow_t&) noexcept {
    scalable_aligned_free(memory);
}
