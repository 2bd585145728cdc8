#include "services/files/directories.h"
#include "services/logging/binarylog.h"
#include "tests/support/processes.h"
#include "tests/support/temporaryfolder.h"
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

/// Logs a line into the file of a folder, and does `look` while the file is open.
bool Logs(const TemporaryFolder& folder, bool (*look)(const std::string& path)) {
    SetTalveraAppDataDirectory((folder.Path() + "/").c_str());
    TBinaryLogFile::GetInstance()->SetSink(nullptr);
    gBinaryLogMessageLoggingMutex.Acquire();
    TBinaryLogFile::GetInstance()->Write("text", "source", 7);
    gBinaryLogMessageLoggingMutex.Release();
    return look(folder.Path("hdlbuildfile.log"));
}

/// Whether that file is open here, and in no program that is started.
bool IsOpenHereAlone(const std::string& path) {
    struct stat named = {};
    struct stat opened = {};
    if (stat(path.c_str(), &named) != 0) return false;
    for (int file = 3; file < 100; ++file)
        if (fstat(file, &opened) == 0 && opened.st_ino == named.st_ino)
            return (fcntl(file, F_GETFD) & FD_CLOEXEC) != 0;
    return false;
}

}  // namespace

TEST(BinaryLogFileOfPosix, IsPassedOnToNoProgram) {
    const TemporaryFolder folder;
    EXPECT_TRUE(Succeeds(StartProcess([&] { return Logs(folder, IsOpenHereAlone); })));
    EXPECT_EQ(folder.Read("hdlbuildfile.log"), "source(7): text\n");
}

TEST(BinaryLogFileOfPosix, WaitsForNoPipe) {
    const TemporaryFolder folder;
    ASSERT_EQ(mkfifo(folder.Path("hdlbuildfile.log").c_str(), 0600), 0);
    EXPECT_TRUE(Succeeds(StartProcess([&] {
        alarm(10);
        return Logs(folder, [](const std::string&) { return true; });
    })));
}
