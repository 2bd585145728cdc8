#include "services/base/keeper.h"
#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

// What is kept shows in the leak checker only: a kept object is no leak, a forgotten one can be
// deleted.

TEST(Keeper, ForgetsWhatItKeepsInAnyOrderAndIgnoresNull) {
    KeepUntilExit(nullptr);
    ForgetKept(nullptr);
    const auto one = std::make_unique<int>(1);
    const auto two = std::make_unique<int>(2);
    KeepUntilExit(one.get());
    KeepUntilExit(two.get());
    KeepUntilExit(one.get());
    ForgetKept(one.get());
    ForgetKept(one.get());
    ForgetKept(two.get());
    EXPECT_EQ(*one + *two, 3);
}

TEST(Keeper, TakesConstantTimeForManyObjects) {
    std::vector<int> objects(300000);
    const auto begin = std::chrono::steady_clock::now();
    for (const int& object : objects) KeepUntilExit(&object);
    for (const int& object : objects) ForgetKept(&object);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
}

TEST(Keeper, KeepsDroppedObjectsReachable) {
    auto* dropped = new std::vector<int>{1, 2, 3};
    KeepUntilExit(dropped);
    const auto other = std::make_unique<int>(1);
    KeepUntilExit(other.get());
    ForgetKept(other.get());
    EXPECT_EQ(dropped->size(), 3u);
}
