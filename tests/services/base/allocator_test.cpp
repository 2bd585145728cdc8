#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <new>
#include <tbb/scalable_allocator.h>
#include <vector>

// Compilers that never call the sized forms by themselves do not declare them either.
void operator delete(void* memory, std::size_t size) noexcept;
void operator delete[](void* memory, std::size_t size) noexcept;
void operator delete(void* memory, std::size_t size, std::align_val_t alignment) noexcept;
void operator delete[](void* memory, std::size_t size, std::align_val_t alignment) noexcept;

namespace {

constexpr std::size_t kImpossible = std::numeric_limits<std::size_t>::max() / 2;

struct alignas(256) WideRecord {
    char Bytes[256];
};

/// An operand that the compiler cannot see through, so that no allocation is optimised away.
std::size_t Hidden(std::size_t size) {
    volatile std::size_t hidden = size;
    return hidden;
}

}  // namespace

TEST(Allocator, StandsBehindOperatorNew) {
    void* single = ::operator new(Hidden(40));
    void* array = ::operator new[](Hidden(40));
    void* quiet = ::operator new(Hidden(40), std::nothrow);
    for (void* memory : {single, array, quiet}) EXPECT_GE(scalable_msize(memory), 40u);
    ::operator delete(single);
    ::operator delete[](array, 40);
    ::operator delete(quiet, std::nothrow);
}

TEST(Allocator, StandsBehindTheStandardContainers) {
    const std::vector<int> numbers(Hidden(1000));
    EXPECT_GE(scalable_msize(const_cast<int*>(numbers.data())), 1000 * sizeof(int));
}

TEST(Allocator, GivesEachEmptyAllocationAnAddress) {
    void* one = ::operator new(Hidden(0));
    void* two = ::operator new(Hidden(0));
    EXPECT_NE(one, nullptr);
    EXPECT_NE(two, nullptr);
    EXPECT_NE(one, two);
    ::operator delete(one);
    ::operator delete (two, std::size_t{0});
}

TEST(Allocator, DeletesNullInEveryForm) {
    constexpr std::nullptr_t null = nullptr;
    ::operator delete(null);
    ::operator delete[](null);
    ::operator delete (null, std::size_t{8});
    ::operator delete[](null, std::size_t{8});
    ::operator delete(null, std::nothrow);
    ::operator delete[](null, std::nothrow);
    ::operator delete (null, std::align_val_t{64});
    ::operator delete[](null, std::align_val_t{64});
    ::operator delete (null, std::size_t{8}, std::align_val_t{64});
    ::operator delete[](null, std::size_t{8}, std::align_val_t{64});
    ::operator delete (null, std::align_val_t{64}, std::nothrow);
    ::operator delete[](null, std::align_val_t{64}, std::nothrow);
    SUCCEED() << "the process lives";
}

TEST(Allocator, AlignsAsAsked) {
    for (const std::size_t alignment : {16u, 32u, 64u, 128u, 4096u}) {
        const auto value = std::align_val_t{alignment};
        void* single = ::operator new(Hidden(3), value);
        void* array = ::operator new[](Hidden(3), value, std::nothrow);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(single) % alignment, 0u);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(array) % alignment, 0u);
        EXPECT_GE(scalable_msize(single), 3u);
        ::operator delete(single, 3, value);
        ::operator delete[](array, value, std::nothrow);
    }
    const auto record = std::make_unique<WideRecord>();
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(record.get()) % alignof(WideRecord), 0u);
}

TEST(Allocator, GivesNullWithoutMemoryWhereNullIsPromised) {
    EXPECT_EQ(::operator new(Hidden(kImpossible), std::nothrow), nullptr);
    EXPECT_EQ(::operator new[](Hidden(kImpossible), std::nothrow), nullptr);
    EXPECT_EQ(::operator new (Hidden(kImpossible), std::align_val_t{64}, std::nothrow), nullptr);
}

TEST(Allocator, AsksTheNewHandlerFirst) {
    static int calls = 0;
    const auto former = std::set_new_handler([] {
        if (++calls == 2) throw std::bad_alloc();
    });
    EXPECT_EQ(::operator new(Hidden(kImpossible), std::nothrow), nullptr);
    std::set_new_handler(former);
    EXPECT_EQ(calls, 2);
}

TEST(Allocator, ThrowsWithoutMemoryWhereNullIsNotPromised) {
    EXPECT_THROW(::operator delete(::operator new(Hidden(kImpossible))), std::bad_alloc);
    EXPECT_THROW(::operator delete[](::operator new[](Hidden(kImpossible))), std::bad_alloc);
    EXPECT_THROW(::operator delete (::operator new (Hidden(kImpossible), std::align_val_t{64}),
                                    std::align_val_t{64}),
                 std::bad_alloc);
    EXPECT_THROW(::operator delete[](::operator new[](Hidden(kImpossible), std::align_val_t{64}),
                                     std::align_val_t{64}),
                 std::bad_alloc);
}
