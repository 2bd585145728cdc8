#pragma once
#include <cstddef>
#include <new>

/// What the system's large pages hold. Memory that is read here and there, and is much larger than
/// the processor's table of pages, waits for that table at each step unless its pages are large.
inline constexpr std::size_t kLargePageSize = std::size_t{2} << 20;

/// Memory for `size` bytes, in large pages where the system has them to give: its beginning is that
/// of a page. To be freed by FreeLargePages; throws std::bad_alloc.
void* AllocateLargePages(std::size_t size);
void FreeLargePages(void* memory);

/// Takes large pages for what fills them, on behalf of a container, which limits the counts.
template <class T>
class TLargePageAllocator {
public:
    using value_type = T;

    TLargePageAllocator() = default;
    template <class TOther>
    explicit TLargePageAllocator(const TLargePageAllocator<TOther>&) {}

    T* allocate(std::size_t count) {
        const std::size_t size = count * sizeof(T);
        return static_cast<T*>(IsLarge(count) ? AllocateLargePages(size) : ::operator new(size));
    }
    void deallocate(T* memory, std::size_t count) {
        if (IsLarge(count))
            FreeLargePages(memory);
        else
            ::operator delete(memory);
    }
    bool operator==(const TLargePageAllocator&) const = default;

private:
    static bool IsLarge(std::size_t count) { return count >= kLargePageSize / sizeof(T); }
};
