#include "flows/run/runfiles.h"
#include "tests/support/processes.h"
#include "tests/support/temporaryfolder.h"
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

TEST(RunFilesOfPosix, GoThroughNoLinkAndWaitForNoPipe) {
    const TemporaryFolder folder;
    folder.Write("other", "other");
    ASSERT_EQ(symlink("other", folder.Path("a.part").c_str()), 0);
    ASSERT_EQ(symlink("none", folder.Path("b.part").c_str()), 0);
    ASSERT_EQ(mkfifo(folder.Path("c.part").c_str(), 0600), 0);
    folder.Write("d.part", "of a run that was killed, and longer");
    for (const char* name : {"a", "b", "c", "d"}) {
        EXPECT_EQ(WriteWhole(folder.Path(name), "text"), "") << name;
        EXPECT_EQ(folder.Read(name), "text") << name;
    }
    EXPECT_EQ(folder.Read("other"), "other");
    EXPECT_EQ(folder.List(), "a\nb\nc\nd\nother\n");
}

TEST(RunFilesOfPosix, StayAsTheyAreOnAFullDisk) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a", "old");
    EXPECT_TRUE(Succeeds(StartProcess([&path] {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {100, 100};
        return setrlimit(RLIMIT_FSIZE, &limit) == 0 &&
               WriteWhole(path, std::string(1000, 'x')) == path + ": File too large";
    })));
    EXPECT_EQ(folder.Read("a"), "old");
    EXPECT_EQ(folder.List(), "a\n");
}
