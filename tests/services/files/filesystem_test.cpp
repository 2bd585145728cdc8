#include "services/files/filesystem.h"
#include "tests/support/memoryfilesystem.h"
#include <gtest/gtest.h>

TEST(FileSystem, IsTheOperatingSystemsUnlessAnotherIsSet) {
    EXPECT_EQ(&GetFileSystem(), &GetNativeFileSystem());
    {
        MemoryFileSystem outer;
        EXPECT_EQ(&GetFileSystem(), &outer);
        {
            MemoryFileSystem inner;
            EXPECT_EQ(&GetFileSystem(), &inner);
            EXPECT_EQ(SetFileSystem(nullptr), &inner);
            EXPECT_EQ(&GetFileSystem(), &GetNativeFileSystem());
            EXPECT_EQ(SetFileSystem(&inner), nullptr);
        }
        EXPECT_EQ(&GetFileSystem(), &outer);
    }
    EXPECT_EQ(&GetFileSystem(), &GetNativeFileSystem());
}

TEST(FileSystem, HasTheClockOfTheYear) {
    constexpr std::int64_t k2020 = 1'577'836'800'000'000'000;
    const std::int64_t first = GetNativeFileSystem().GetTime();
    EXPECT_GT(first, k2020);
    EXPECT_LT(first, 5 * k2020);
    EXPECT_GE(GetNativeFileSystem().GetTime(), first);
}
