#include "services/base/sharedset.h"
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

TEST(SharedSet, HasWhatWasAddedUntilItIsRemoved) {
    TSharedSet<std::string> names;
    EXPECT_FALSE(names.Has("a"));
    names.Add("a");
    names.Add("b");
    names.Add("b");
    names.Remove("a");
    names.Remove("c");
    EXPECT_FALSE(names.Has("a"));
    EXPECT_TRUE(names.Has("b"));
    names.Remove("b");
    EXPECT_FALSE(names.Has("b")) << "once, however often it was added";
}

TEST(SharedSet, TakesEntriesOfSeveralThreads) {
    constexpr int kThreads = 4;
    constexpr int kEntries = 20'000;
    TSharedSet<int> numbers;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread)
        threads.emplace_back([&numbers, thread] {
            for (int i = 0; i < kEntries; ++i) numbers.Add(i * kThreads + thread);
            for (int i = 0; i < kEntries; i += 2) numbers.Remove(i * kThreads + thread);
        });
    for (std::thread& thread : threads) thread.join();
    for (int i = 0; i < kThreads * kEntries; ++i) ASSERT_EQ(numbers.Has(i), i / kThreads % 2 == 1);
}
