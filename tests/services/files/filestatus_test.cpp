#include "services/files/filestatus.h"
#include "tests/services/names/hostform.h"
#include "tests/support/memoryfilesystem.h"
#include <gtest/gtest.h>

TEST(FileStatus, IsOneLookAtTheDisk) {
    MemoryFileSystem disk;
    disk.Clock = 5'000'000'007;
    const std::string path = HostForm(disk.Put("/p/a.v", "four"));
    const std::uint64_t before = CountOfFileLooks();
    const TFileStatus status = LookAtFile(path);
    EXPECT_EQ(CountOfFileLooks() - before, 1U);
    EXPECT_EQ(disk.GetOperations(), std::vector<std::string>{"GetStatus"});
    EXPECT_TRUE(status.Exists && !status.IsDirectory && !status.IsUnknown);
    EXPECT_EQ(status.Time, 5'000'000'007);
    EXPECT_EQ(status.Size, 4);
    EXPECT_TRUE(LookAtFile(HostForm("/p")).IsDirectory);
    EXPECT_FALSE(LookAtFile(HostForm("/p/b.v")).Exists);
    EXPECT_TRUE(LookWhetherReadable(path) && LookWhetherWritable(path));
    disk.Protect("/p/a.v");
    EXPECT_FALSE(LookWhetherWritable(path));
    EXPECT_EQ(CountOfFileLooks() - before, 6U);
}

TEST(FileStatus, IsUnknownWhenTheLookFails) {
    MemoryFileSystem disk;
    disk.Put("/p/a.v", "four");
    disk.FailAt(1, {TFileFault::Other, "broken"});
    const TFileStatus status = LookAtFile(HostForm("/p/a.v"));
    EXPECT_FALSE(status.Exists);
    EXPECT_TRUE(status.IsUnknown);
}

TEST(FileStatus, DiffersInExistenceTimeAndSizeOnly) {
    const TFileStatus status = {true, false, 7, 4};
    EXPECT_EQ(status, (TFileStatus{true, true, 7, 4, true}));
    EXPECT_FALSE(status == (TFileStatus{false, false, 7, 4}));
    EXPECT_FALSE(status == (TFileStatus{true, false, 8, 4}));
    EXPECT_FALSE(status == (TFileStatus{true, false, 7, 5}));
}

TEST(FileStatus, HasATimeWordThatIsZeroWithoutAFileOnly) {
    constexpr bool isInNanoseconds = sizeof(unsigned long) == 8;
    EXPECT_EQ(TimeWordOf({}), 0U);
    EXPECT_EQ(TimeWordOf({true, false, 0, 0}), 1U);
    EXPECT_EQ(TimeWordOf({true, false, 3'000'000'005, 0}), isInNanoseconds ? 3'000'000'005 : 3);
}
