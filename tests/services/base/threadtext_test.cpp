#include "services/base/threadtext.h"
#include <gtest/gtest.h>
#include <thread>

TEST(KeepTextOfThread, KeepsTheTextUntilTheNextCallOfTheOperation) {
    const char* const first = KeepTextOfThread<struct TFirst>("a text of the first operation");
    const char* const second = KeepTextOfThread<struct TSecond>("another of the second operation");
    EXPECT_STREQ(first, "a text of the first operation");
    EXPECT_STREQ(second, "another of the second operation");
    EXPECT_STREQ(KeepTextOfThread<TFirst>(first), "a text of the first operation");
}

TEST(KeepTextOfThread, LeavesTheTextOfOtherThreads) {
    const char* const text = KeepTextOfThread<struct TOperation>("a text of this thread");
    std::thread([] {
        EXPECT_STREQ(KeepTextOfThread<TOperation>("one of another"), "one of another");
    }).join();
    EXPECT_STREQ(text, "a text of this thread");
}
