#include "services/files/nativefilesystem.h"
#include "tests/services/names/hostform.h"
#include "tests/support/processes.h"
#include "tests/support/temporaryfolder.h"
#include <algorithm>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

TEST(PosixFileSystem, TellsAProcessThatIsGone) {
    TNativeFileSystem system;
    const pid_t living = StartProcess([] { return pause() == 0; });
    const std::string own = system.GetProcessMark();
    const std::string machine = own.substr(0, own.find('.') + 1);
    const std::string mark = machine + std::to_string(living);
    EXPECT_EQ(own, machine + std::to_string(getpid()));
    for (const std::string& there : {mark, own, "1." + std::to_string(living), machine + "0",
                                     machine + "-1", machine, std::string()})
        EXPECT_FALSE(system.IsProcessGone(there)) << there;
    // The administrator's processes are there for everybody, who may not signal them.
    EXPECT_TRUE(Succeeds(StartProcess(
        [&] { return BecomeOrdinaryUser() && !system.IsProcessGone(machine + "1"); })));
    kill(living, SIGKILL);
    EXPECT_FALSE(Succeeds(living));
    EXPECT_TRUE(system.IsProcessGone(mark));
    EXPECT_FALSE(system.IsProcessGone("1." + std::to_string(living)));
}

TEST(PosixFileSystem, TellsWhatALinkLeadsTo) {
    TNativeFileSystem system;
    const TemporaryFolder folder;
    folder.Write("file", "x");
    ASSERT_EQ(symlink("../else", folder.Path("relative").c_str()), 0);
    ASSERT_EQ(symlink("/elsewhere", folder.Path("absolute").c_str()), 0);
    std::string target;
    EXPECT_TRUE(system.ReadLink(folder.Path("relative"), &target).IsDone());
    EXPECT_EQ(target, folder.Path() + "/../else");
    EXPECT_TRUE(system.ReadLink(folder.Path("absolute"), &target).IsDone());
    EXPECT_EQ(target, "/elsewhere");
    EXPECT_EQ(system.ReadLink(folder.Path("file"), &target).Fault, TFileFault::NotALink);
    EXPECT_EQ(system.ReadLink(folder.Path("none"), &target).Fault, TFileFault::Missing);
    EXPECT_EQ(system.ReadLink(folder.Path("file/none"), &target).Fault, TFileFault::Other);
    EXPECT_EQ(system.ReadLink("C:\\a", &target).Fault, TFileFault::Missing);
}

TEST(PosixFileSystem, ListsTheNamesInAFolder) {
    TNativeFileSystem system;
    const TemporaryFolder folder;
    folder.Write("b", "");
    folder.Write("a/inner", "");
    std::vector<std::string> names = {"former"};
    EXPECT_TRUE(system.ListFolder(folder.Path() + "/", &names).IsDone());
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{".", "..", "a", "b"}));
    EXPECT_EQ(system.ListFolder(folder.Path("none"), &names).Fault, TFileFault::Missing);
    EXPECT_EQ(names, std::vector<std::string>());
}

TEST(PosixFileSystem, TellsAMissingFileFromOneThatItCannotSee) {
    TNativeFileSystem system;
    const TemporaryFolder folder;
    folder.Write("file", "four");
    const TFileStatus there = system.GetStatus(folder.Path("file"));
    EXPECT_TRUE(there.Exists && !there.IsDirectory && !there.IsUnknown);
    EXPECT_EQ(there.Size, 4);
    EXPECT_TRUE(system.GetStatus(folder.Path()).IsDirectory);
    for (const std::string& path : {folder.Path("none"), folder.Path("file/none"), std::string()}) {
        const TFileStatus status = system.GetStatus(path);
        EXPECT_FALSE(status.Exists || status.IsUnknown) << path;
    }
    const TFileStatus unknown = system.GetStatus(folder.Path(std::string(5'000, 'x')));
    EXPECT_FALSE(unknown.Exists);
    EXPECT_TRUE(unknown.IsUnknown);
}

TEST(PosixFileSystem, TellsAFileThatCannotBeReadToItsEnd) {
    if (access("/proc/self/mem", R_OK) != 0) GTEST_SKIP() << "no file here has unreadable bytes";
    TNativeFileSystem system;
    std::string bytes;
    const TFileResult result = system.Read("/proc/self/mem", 1'000, &bytes);
    EXPECT_EQ(result.Fault, TFileFault::Other);
    EXPECT_EQ(result.Reason, "Input/output error");
}

TEST(PosixFileSystem, MakesNoFilesElsewhereWhenTheWorkingDirectoryIsGone) {
    TNativeFileSystem system;
    const std::string former = system.GetWorkingDirectory({});
    std::string inside, gone;
    {
        const TemporaryFolder folder;
        ASSERT_TRUE(system.ChangeWorkingDirectory(folder.Path()).IsDone());
        inside = system.GetWorkingDirectory({});
        EXPECT_EQ(inside, system.ExpandLinks(folder.Path()));
    }
    gone = system.GetWorkingDirectory({});
    std::string bytes;
    const TFileResult result = system.Read(gone + "/file", 1'000, &bytes);
    EXPECT_TRUE(system.ChangeWorkingDirectory(former).IsDone());
    EXPECT_EQ(gone, "/proc/self/cwd");
    EXPECT_EQ(result.Fault, TFileFault::Missing);
}

TEST(PosixFileSystem, TellsWhatMayBeReadAndWritten) {
    TNativeFileSystem system;
    const TemporaryFolder folder;
    folder.Write("file", "");
    EXPECT_TRUE(system.CanRead(folder.Path("file")) && system.CanWrite(folder.Path("file")));
    EXPECT_FALSE(system.CanRead(folder.Path("none")) || system.CanWrite(folder.Path("none")));
    const WorkingDirectory here(folder.Path());
    EXPECT_FALSE(system.CanRead("file") || system.CanWrite("file")) << "a path of no system";
}

}  // namespace
