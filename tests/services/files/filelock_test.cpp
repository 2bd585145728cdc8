#include "services/files/filelock.h"
#include "services/files/filereplace.h"
#include "tests/services/names/hostform.h"
#include "tests/support/lockfilename.h"
#include "tests/support/memoryfilesystem.h"
#include <gtest/gtest.h>
#include <numeric>
#include <optional>
#include <thread>

namespace {

constexpr const char* kPath = "/p/a.xml";
const TFileResult kBroken = {TFileFault::Other, "the disk is broken"};

/// The lock file of a file in /p/.
std::string LockFile(const std::string& name) {
    return "/p/" + LockFileName(name);
}

/// What a lock of `path` tells.
std::string Told(const TFileLock& lock) {
    return lock.IsHeld() ? "held" + lock.GetReason() : lock.GetReason();
}
std::string Locked(const char* path = kPath) {
    return Told(TFileLock(HostForm(path).c_str()));
}
/// What the same tells on another thread.
std::string LockedElsewhere(const char* path = kPath) {
    std::string told;
    std::thread([&] { told = Locked(path); }).join();
    return told;
}
std::string Waited(const char* name) {
    return LockedReason(HostForm(LockFile(name)));
}

std::string Words(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
    return text;
}

class FileLock : public testing::Test {
protected:
    FileLock() { Disk.Put(kPath, "bytes"); }
    MemoryFileSystem Disk;
};

}  // namespace

TEST_F(FileLock, TakesTheSameStepsEveryTime) {
    for (int round = 0; round < 2; ++round) {
        Disk.Mend();
        {
            const TFileLock lock(HostForm(kPath).c_str());
            EXPECT_EQ(Told(lock), "held");
            EXPECT_EQ(lock.GetTarget(), HostForm(kPath));
            EXPECT_EQ(Disk.List(), LockFile("a.xml") + "\n/p/a.xml\n");
        }
        EXPECT_EQ(Words(Disk.GetOperations()), "ReadLink OpenLock Lock CheckNames Remove Close");
        EXPECT_EQ(Disk.List(), "/p/a.xml\n");
    }
    EXPECT_TRUE(Disk.Waits.empty());
}

TEST_F(FileLock, KeepsOthersAwayUntilItEnds) {
    {
        const TFileLock lock(HostForm(kPath).c_str());
        ASSERT_EQ(Told(lock), "held");
        EXPECT_EQ(LockedElsewhere(), Waited("a.xml"));
        EXPECT_EQ(
            std::accumulate(Disk.Waits.begin(), Disk.Waits.end(), std::int64_t{0}) / 1'000'000'000,
            10);
        EXPECT_EQ(LockedElsewhere("/p/b.xml"), "held");
        // Where case counts it is another file, with the same lock file.
        EXPECT_EQ(LockedElsewhere("/p/A.XML"), Waited("a.xml"));
    }
    EXPECT_EQ(LockedElsewhere(), "held");
    EXPECT_EQ(Disk.List(), "/p/a.xml\n");
}

TEST_F(FileLock, IsHadWhenItsHolderWasKilled) {
    TFileNumber others = 0;
    ASSERT_TRUE(Disk.OpenLock(LockFile("a.xml"), &others).IsDone());
    ASSERT_TRUE(Disk.Lock(others).IsDone());
    Disk.Mend();
    Disk.OnWait = [&] {
        if (Disk.Waits.size() == 3) Disk.Close(others);
    };
    EXPECT_EQ(Locked(), "held");
    EXPECT_EQ(Disk.Waits, (std::vector<std::int64_t>{1'000'000, 2'000'000, 4'000'000}));
    EXPECT_EQ(Words(Disk.GetOperations()),
              "ReadLink OpenLock Lock Close OpenLock Lock Close OpenLock Lock Close Close "
              "OpenLock Lock CheckNames Remove Close");
    EXPECT_EQ(Disk.List(), "/p/a.xml\n");
}

TEST(FileLockRace, StartsAgainWhenTheLockFileIsNoLongerTheOneItOpened) {
    /// Where the former holder removes the lock file while it is opened, and the next one makes its
    /// own.
    class TChangingDisk : public MemoryFileSystem {
    public:
        TFileResult Lock(TFileNumber file) override {
            if (Round++ == 0) {
                Remove(LockFile("a.xml"));
                if (HasNext) OpenLock(LockFile("a.xml"), &Next);
            }
            return MemoryFileSystem::Lock(file);
        }
        bool HasNext = false;
        int Round = 0;
        TFileNumber Next = 0;
    };
    for (const bool hasNext : {false, true}) {
        TChangingDisk disk;
        disk.HasNext = hasNext;
        disk.Put(kPath, "bytes");
        const TFileLock lock(HostForm(kPath).c_str());
        EXPECT_EQ(Told(lock), "held");
        EXPECT_EQ(disk.Waits, (std::vector<std::int64_t>{1'000'000}));
        EXPECT_EQ(disk.List(), LockFile("a.xml") + "\n/p/a.xml\n");
        EXPECT_EQ(LockedElsewhere(), Waited("a.xml"));
    }
}

TEST_F(FileLock, IsTakenAgainByItsThread) {
    std::optional<TFileLock> first(HostForm(kPath).c_str());
    Disk.Mend();
    std::optional<TFileLock> second(HostForm(kPath).c_str());
    EXPECT_EQ(Told(*second), "held");
    EXPECT_EQ(Words(Disk.GetOperations()), "ReadLink");
    first.reset();
    EXPECT_EQ(LockedElsewhere(), Waited("a.xml"));
    std::optional<TFileLock> other(HostForm("/p/b.xml").c_str());
    first.emplace(HostForm(kPath).c_str());
    second.reset();
    EXPECT_EQ(LockedElsewhere(), Waited("a.xml"));
    first.reset();
    EXPECT_EQ(LockedElsewhere(), "held");
    EXPECT_EQ(LockedElsewhere("/p/b.xml"), Waited("b.xml"));
    other.reset();
    EXPECT_EQ(Disk.List(), "/p/a.xml\n");
}

TEST_F(FileLock, IsOfTheFileBehindLinks) {
    Disk.PutLink("/q/second", "/q/first");
    Disk.PutLink("/q/first", kPath);
    Disk.PutLink("/q/circle", "/q/circle");
    {
        const TFileLock lock(HostForm("/q/second").c_str());
        EXPECT_EQ(Told(lock), "held");
        EXPECT_EQ(lock.GetTarget(), HostForm(kPath));
        EXPECT_EQ(LockedElsewhere(), Waited("a.xml"));
        EXPECT_EQ(LockedElsewhere("/q/first"), Waited("a.xml"));
        EXPECT_EQ(Locked(), "held");
    }
    EXPECT_EQ(Locked("/q/circle"), "Too many levels of symbolic links");
    EXPECT_EQ(Disk.List(),
              "/p/a.xml\n/q/circle -> /q/circle\n/q/first -> /p/a.xml\n"
              "/q/second -> /q/first\n");
}

TEST_F(FileLock, IsHeldWhileItsFileIsSaved) {
    const TFileLock lock(HostForm(kPath).c_str());
    Disk.Mend();
    EXPECT_TRUE(ReplaceWholeFile(HostForm(kPath).c_str(), "new bytes", nullptr));
    EXPECT_EQ(Words(Disk.GetOperations()),
              "ReadLink CheckReplaceable ListFolder Create Write TakeOver Flush Close Link Rename "
              "FlushFolder Remove");
    EXPECT_EQ(LockedElsewhere(), Waited("a.xml"));
    std::string reason;
    std::thread([&] {
        EXPECT_FALSE(ReplaceWholeFile(HostForm(kPath).c_str(), "newer", &reason));
    }).join();
    EXPECT_EQ(reason, Waited("a.xml"));
    EXPECT_EQ(Disk.Text(kPath), "new bytes");
}

TEST_F(FileLock, IsNotHeldWhenAStepFails) {
    // A lock file that was made and not locked is of no importance; removing it may free a file
    // that somebody else locks.
    const std::string kept = LockFile("a.xml") + "\n/p/a.xml\n";
    const std::string left[] = {"/p/a.xml\n", "/p/a.xml\n", kept, kept};
    for (int number = 1; number <= 4; ++number) {
        Disk.FailAt(number, kBroken);
        EXPECT_EQ(Locked(), kBroken.Reason) << number;
        EXPECT_EQ(Disk.List(), left[number - 1]) << number;
        Disk.Mend();
        EXPECT_EQ(Locked(), "held") << number;
        EXPECT_EQ(Disk.List(), "/p/a.xml\n") << number;
    }
    EXPECT_EQ(Locked("/none/a.xml"), "missing");
    EXPECT_EQ(Told(TFileLock(nullptr)), "missing");
}

TEST_F(FileLock, EndsWhicheverStepFails) {
    for (const int number : {5, 6}) {
        Disk.FailAt(number, kBroken);
        EXPECT_EQ(Locked(), "held") << number;
        EXPECT_EQ(Disk.List(), "/p/a.xml\n") << number;
        EXPECT_EQ(LockedElsewhere(), "held") << number;
    }
    Disk.FailAt(5, kBroken, true);
    EXPECT_EQ(Locked(), "held");
    EXPECT_EQ(Disk.List(), LockFile("a.xml") + "\n/p/a.xml\n");
    Disk.Mend();
    EXPECT_EQ(LockedElsewhere(), "held");
    EXPECT_EQ(Disk.List(), "/p/a.xml\n");
}

TEST(FileLockMixture, IsNotTakenForOneThatTheFileSystemDoesNotKnow) {
    /// Knows no lock of the file that is opened first.
    class TMixedDisk : public MemoryFileSystem {
    public:
        TFileResult Lock(TFileNumber file) override {
            if (file == 0) return {TFileFault::Unsupported, "no locks here"};
            return MemoryFileSystem::Lock(file);
        }
        TFileResult CheckNames(const std::string& path, TFileNumber file) override {
            AsksForClosed = AsksForClosed || file == 0;
            return MemoryFileSystem::CheckNames(path, file);
        }
        bool AsksForClosed = false;
    };
    TMixedDisk disk;
    disk.PutFolder("/p");
    const TFileLock unknown(HostForm(kPath).c_str());
    ASSERT_EQ(Told(unknown), "held");
    TFileNumber others = 0;
    ASSERT_TRUE(disk.OpenLock(LockFile("b.xml"), &others).IsDone());
    ASSERT_TRUE(disk.Lock(others).IsDone());
    EXPECT_EQ(Locked("/p/b.xml"), Waited("b.xml"));
    // Its number may be that of another file by now.
    EXPECT_FALSE(disk.AsksForClosed);
}

TEST_F(FileLock, KeepsNobodyAwayWhereTheFileSystemKnowsNoLocks) {
    Disk.FailAt(3, {TFileFault::Unsupported, "no locks here"});
    const TFileLock lock(HostForm(kPath).c_str());
    EXPECT_EQ(Told(lock), "held");
    EXPECT_EQ(Words(Disk.GetOperations()), "ReadLink OpenLock Lock Remove Close");
    EXPECT_EQ(Locked(), "held");
    EXPECT_EQ(LockedElsewhere(), "held");
    EXPECT_EQ(Disk.List(), "/p/a.xml\n");
}
