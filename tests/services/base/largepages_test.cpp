#include "services/base/largepages.h"
#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <vector>

namespace {

bool BeginsLargePage(const void* memory) {
    return reinterpret_cast<std::uintptr_t>(memory) % kLargePageSize == 0;
}

TEST(LargePages, BeginWhereAPageDoesAndAreAllThere) {
    constexpr std::size_t kSize = 3 * kLargePageSize + 5;
    auto* const memory = static_cast<unsigned char*>(AllocateLargePages(kSize));
    EXPECT_TRUE(BeginsLargePage(memory));
    std::memset(memory, 7, kSize);
    EXPECT_EQ(memory[kSize - 1], 7);
    FreeLargePages(memory);
}

TEST(LargePages, AreTakenForWhatFillsThem) {
    using TLargeVector = std::vector<std::uint64_t, TLargePageAllocator<std::uint64_t>>;
    constexpr std::size_t kFilling = kLargePageSize / sizeof(std::uint64_t);
    TLargeVector numbers;
    for (std::uint64_t i = 0; i < 3 * kFilling; ++i) numbers.push_back(i * i);
    for (std::uint64_t i = 0; i < 3 * kFilling; ++i) ASSERT_EQ(numbers[i], i * i);
    EXPECT_TRUE(BeginsLargePage(numbers.data()));
    EXPECT_TRUE(BeginsLargePage(TLargeVector(kFilling).data()));
}

}  // namespace
