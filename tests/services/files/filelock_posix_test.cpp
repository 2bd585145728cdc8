#include "services/files/filelock.h"
#include "services/files/filereplace.h"
#include "services/files/nativefilesystem.h"
#include "tests/support/lockfilename.h"
#include "tests/support/processes.h"
#include "tests/support/temporaryfolder.h"
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

// Locks between processes.

namespace {

/// The operating system's files, for whoever has no time to wait.
class TImpatientFileSystem : public TNativeFileSystem {
public:
    TImpatientFileSystem() { SetFileSystem(this); }
    ~TImpatientFileSystem() { SetFileSystem(nullptr); }
    TImpatientFileSystem(const TImpatientFileSystem&) = delete;
    TImpatientFileSystem& operator=(const TImpatientFileSystem&) = delete;
    void Wait(std::int64_t nanoseconds) override { Waited += nanoseconds; }
    std::int64_t Waited = 0;
};

std::string Locked(const std::string& path) {
    const TFileLock lock(path.c_str());
    return lock.IsHeld() ? "held" : lock.GetReason();
}

/// A process that holds the lock of a file until it is killed.
class THolder {
public:
    explicit THolder(const std::string& path) {
        int ends[2] = {};
        if (pipe(ends) != 0) return;
        Process = StartProcess([&] {
            const TFileLock lock(path.c_str());
            return write(ends[1], lock.IsHeld() ? "y" : "n", 1) == 1 && pause() == 0;
        });
        IsHolding = read(ends[0], &Answer, 1) == 1 && Answer == 'y';
        close(ends[0]);
        close(ends[1]);
    }
    ~THolder() { Kill(); }
    THolder(const THolder&) = delete;
    THolder& operator=(const THolder&) = delete;
    void Kill() {
        if (Process <= 0) return;
        kill(Process, SIGKILL);
        waitpid(Process, nullptr, 0);
        Process = 0;
    }

    bool IsHolding = false;

private:
    pid_t Process = 0;
    char Answer = 0;
};

bool AddOne(const std::string& path) {
    const TFileLock lock(path.c_str());
    std::string bytes;
    return lock.IsHeld() && ReadWholeFile(path.c_str(), &bytes, nullptr) == FILE_READ_DONE &&
           ReplaceWholeFile(path.c_str(), std::to_string(std::stoi(bytes) + 1), nullptr);
}

}  // namespace

TEST(FileLockOfProcesses, EndsWithItsHolderWhoeverKillsIt) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.xml", "old");
    THolder holder(path);
    ASSERT_TRUE(holder.IsHolding);
    EXPECT_EQ(folder.List(), LockFileName("a.xml") + "\na.xml\n");
    TImpatientFileSystem system;
    const std::string reason = LockedReason(folder.Path(LockFileName("a.xml")));
    EXPECT_EQ(Locked(path), reason);
    EXPECT_EQ(system.Waited / 1'000'000'000, 10);
    std::string told;
    EXPECT_FALSE(ReplaceWholeFile(path.c_str(), "new", &told));
    EXPECT_EQ(told, reason);
    EXPECT_EQ(folder.Read("a.xml"), "old");
    holder.Kill();
    system.Waited = 0;
    // What the killed one left is there, and means nothing.
    EXPECT_EQ(folder.List(), LockFileName("a.xml") + "\na.xml\n");
    EXPECT_TRUE(ReplaceWholeFile(path.c_str(), "new", &told));
    EXPECT_EQ(system.Waited, 0);
    EXPECT_EQ(folder.Read("a.xml"), "new");
    EXPECT_EQ(folder.List(), "a.xml\n");
}

TEST(FileLockOfProcesses, LetsEveryReadChangeAndSaveTakeEffect) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("count", "0");
    std::vector<pid_t> processes;
    for (int i = 0; i < 16; ++i)
        processes.push_back(StartProcess([&] {
            bool isDone = true;
            for (int round = 0; round < 10; ++round) isDone = AddOne(path) && isDone;
            return isDone;
        }));
    for (const pid_t process : processes) EXPECT_TRUE(Succeeds(process));
    EXPECT_EQ(folder.Read("count"), "160");
    EXPECT_EQ(folder.List(), "count\n");
}

TEST(FileLockOfProcesses, LetsEveryThreadsReadChangeAndSaveTakeEffect) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("count", "0");
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i)
        threads.emplace_back([&] {
            for (int round = 0; round < 10; ++round) EXPECT_TRUE(AddOne(path));
        });
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(folder.Read("count"), "80");
    EXPECT_EQ(folder.List(), "count\n");
}

TEST(FileLockOfProcesses, IsOneForAllPathsOfAFolder) {
    const TemporaryFolder folder;
    folder.Write("real/a.xml", "old");
    ASSERT_EQ(symlink("real", folder.Path("other").c_str()), 0);
    TImpatientFileSystem system;
    {
        const TFileLock lock(folder.Path("real/a.xml").c_str());
        EXPECT_EQ(Locked(folder.Path("other/a.xml")), "held");
        EXPECT_EQ(system.Waited, 0);
        EXPECT_TRUE(Succeeds(StartProcess([&] {
            return std::filesystem::exists(folder.Path("real/" + LockFileName("a.xml")));
        })));
        std::string told;
        std::thread([&] { told = Locked(folder.Path("other/a.xml")); }).join();
        EXPECT_EQ(told, LockedReason(folder.Path("other/" + LockFileName("a.xml"))));
    }
    EXPECT_EQ(Locked(folder.Path("other/a.xml")), "held");
    EXPECT_FALSE(folder.Exists("real/" + LockFileName("a.xml")));
}

TEST(FileLockOfProcesses, FailsAtOnceWhereTheUserMayNotWrite) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.xml", "old");
    chmod(path.c_str(), 0666);
    chmod(folder.Path().c_str(), 0555);
    EXPECT_TRUE(Succeeds(StartProcess([&] {
        TImpatientFileSystem system;
        return BecomeOrdinaryUser() && Locked(path) == "Permission denied" && system.Waited == 0;
    })));
    chmod(folder.Path().c_str(), 0755);
    EXPECT_EQ(Locked(folder.Path("none/a.xml")), "No such file or directory");
    EXPECT_EQ(Locked(""), "No such file or directory");
    EXPECT_EQ(Locked("C:\\a.xml"), "No such file or directory");
}

TEST(FileLockOfProcesses, IsOpenToAllWhoMayWriteInTheFolder) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.xml", "old");
    chmod(folder.Path().c_str(), 0777);
    const mode_t former = umask(077);
    THolder holder(path);
    umask(former);
    ASSERT_TRUE(holder.IsHolding);
    const auto isLockedOut = [&] {
        TImpatientFileSystem system;
        return BecomeOrdinaryUser() && Locked(path) != "held" && system.Waited > 0;
    };
    EXPECT_TRUE(Succeeds(StartProcess(isLockedOut)));
    holder.Kill();
    EXPECT_TRUE(folder.Exists(LockFileName("a.xml")));
    EXPECT_TRUE(
        Succeeds(StartProcess([&] { return BecomeOrdinaryUser() && Locked(path) == "held"; })));
    EXPECT_EQ(folder.List(), "a.xml\n");
}

TEST(PosixFileSystem, TellsWhetherALockFileIsTheOneThatWasOpened) {
    TNativeFileSystem system;
    const TemporaryFolder folder;
    const std::string path = folder.Path("lock");
    TFileNumber first = 0;
    TFileNumber second = 0;
    ASSERT_TRUE(system.OpenLock(path, &first).IsDone());
    EXPECT_TRUE(system.Lock(first).IsDone());
    EXPECT_TRUE(system.CheckNames(path, first).IsDone());
    ASSERT_TRUE(system.OpenLock(path, &second).IsDone());
    EXPECT_EQ(system.Lock(second).Fault, TFileFault::Busy);
    EXPECT_TRUE(system.Remove(path).IsDone());
    EXPECT_EQ(system.CheckNames(path, first).Fault, TFileFault::Missing);
    EXPECT_TRUE(system.Close(second).IsDone());
    ASSERT_TRUE(system.OpenLock(path, &second).IsDone());
    EXPECT_EQ(system.CheckNames(path, first).Fault, TFileFault::Missing);
    EXPECT_TRUE(system.CheckNames(path, second).IsDone());
    EXPECT_TRUE(system.Lock(second).IsDone());
    // One that its maker has not opened to the others yet.
    chmod(path.c_str(), 0600);
    EXPECT_TRUE(Succeeds(StartProcess([&] {
                    TFileNumber file = 0;
                    return BecomeOrdinaryUser() &&
                           system.OpenLock(path, &file).Fault == TFileFault::Denied;
                })) ||
                getuid() != 0);
    EXPECT_TRUE(system.Close(first).IsDone());
    EXPECT_TRUE(system.Close(second).IsDone());
}

TEST(PosixFileSystem, PassesNoLockFileOnToOtherPrograms) {
    TNativeFileSystem system;
    const TemporaryFolder folder;
    const char* const kinds[] = {"made", "found"};
    for (const char* kind : kinds) {
        TFileNumber file = 0;
        ASSERT_TRUE(system.OpenLock(folder.Path("lock"), &file).IsDone()) << kind;
        EXPECT_NE(fcntl(static_cast<int>(file), F_GETFD) & FD_CLOEXEC, 0) << kind;
        EXPECT_TRUE(system.Close(file).IsDone()) << kind;
    }
}

/// Makes something in the place of the lock file of "a.xml".
struct TPlanted {
    const char* Label;
    bool (*Plant)(const std::string& lockFile);
    const char* Reason;  ///< behind the name of the lock file; null where it stops nobody
};

const TPlanted kPlanted[] = {
    {"a link",
     [](const std::string& lockFile) { return symlink("elsewhere", lockFile.c_str()) == 0; },
     "Too many levels of symbolic links"},
    {"a link to a file",
     [](const std::string& lockFile) { return symlink("a.xml", lockFile.c_str()) == 0; },
     "Too many levels of symbolic links"},
    {"a folder", [](const std::string& lockFile) { return mkdir(lockFile.c_str(), 0777) == 0; },
     "Is a directory"},
    {"a socket",
     [](const std::string& lockFile) { return mknod(lockFile.c_str(), S_IFSOCK | 0666, 0) == 0; },
     "No such device or address"},
    {"a pipe", [](const std::string& lockFile) { return mkfifo(lockFile.c_str(), 0666) == 0; },
     nullptr},
    {"a file", [](const std::string& lockFile) { return mknod(lockFile.c_str(), 0666, 0) == 0; },
     nullptr},
};

TEST(FileLockOfProcesses, NamesWhatIsInTheWay) {
    for (const TPlanted& planted : kPlanted) {
        const TemporaryFolder folder;
        const std::string path = folder.Write("a.xml", "old");
        const std::string lockFile = folder.Path(LockFileName("a.xml"));
        ASSERT_TRUE(planted.Plant(lockFile)) << planted.Label;
        std::string reason;
        EXPECT_EQ(ReplaceWholeFile(path.c_str(), "new", &reason), !planted.Reason) << planted.Label;
        const std::string expected =
            planted.Reason ? "\"" + lockFile + "\" is in the way: " + planted.Reason : "";
        EXPECT_EQ(reason, expected) << planted.Label;
        EXPECT_EQ(folder.Read("a.xml"), planted.Reason ? "old" : "new") << planted.Label;
        EXPECT_EQ(folder.List(), planted.Reason ? LockFileName("a.xml") + "\na.xml\n" : "a.xml\n")
            << planted.Label;
    }
}

TEST(FileLockOfProcesses, NamesALockFileThatTheUserMayNotOpen) {
    if (getuid() != 0) GTEST_SKIP() << "only the administrator can make such files";
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.xml", "old");
    const std::string lockFile = folder.Write(LockFileName("a.xml"), "");
    chmod(folder.Path().c_str(), 0777);
    chmod(lockFile.c_str(), 0600);
    EXPECT_TRUE(Succeeds(StartProcess([&] {
        TImpatientFileSystem system;
        return BecomeOrdinaryUser() &&
               Locked(path) ==
                   "its lock file \"" + lockFile + "\" cannot be opened: Permission denied" &&
               system.Waited / 1'000'000'000 == 10;
    })));
    EXPECT_EQ(folder.List(), LockFileName("a.xml") + "\na.xml\n");
}
