#include "bench/builds/random.h"
#include <gtest/gtest.h>
#include <numeric>

TEST(Random, GivesTheNumbersOfItsSeed) {
    TRandom random(1);
    std::vector<std::uint32_t> numbers;
    for (int i = 0; i < 6; ++i) numbers.push_back(random.Below(1000));
    EXPECT_EQ(numbers, (std::vector<std::uint32_t>{409, 807, 445, 61, 494, 852}));
}

TEST(Random, StaysBelowEveryLimit) {
    TRandom random(7);
    EXPECT_EQ(random.Below(2), 1u);
    EXPECT_EQ(random.Below(4000000000u), 3384979832u);
    EXPECT_EQ(random.Below(10), 5u);
    EXPECT_EQ(random.Below(1), 0u);
}

TEST(Random, GivesEveryNumberAboutEquallyOften) {
    TRandom random(5);
    std::vector<int> counts(10);
    for (int i = 0; i < 100000; ++i) ++counts[random.Below(10)];
    for (const int count : counts) EXPECT_NEAR(count, 10000, 500);
}

TEST(Random, ShufflesByItsSeed) {
    std::vector<int> values(8);
    std::iota(values.begin(), values.end(), 0);
    TRandom(3).Shuffle(&values);
    EXPECT_EQ(values, (std::vector<int>{4, 5, 6, 2, 1, 3, 7, 0}));
}
