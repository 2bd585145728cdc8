#include "services/files/filereplace.h"
#include "services/files/nativefilesystem.h"
#include "tests/support/processes.h"
#include "tests/support/temporaryfolder.h"
#include <algorithm>
#include <csignal>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#ifdef __linux__
#include <sys/xattr.h>
#endif

// Links, permissions and processes.

namespace {

mode_t ModeOf(const std::string& path) {
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

TEST(FileReplace, KeepsThePermissions) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.sh", "old");
    for (const mode_t mode : {0600U, 0755U, 0664U}) {
        ASSERT_EQ(chmod(path.c_str(), mode), 0);
        EXPECT_TRUE(ReplaceWholeFile(path.c_str(), "new", nullptr));
        EXPECT_EQ(ModeOf(path), mode);
        EXPECT_TRUE(KeepBackup(path.c_str(), nullptr));
        EXPECT_EQ(ModeOf(path + ".bak"), mode);
        std::filesystem::remove(path + ".bak");
    }
    const mode_t former = umask(027);
    EXPECT_TRUE(ReplaceWholeFile(folder.Path("b.txt").c_str(), "new", nullptr));
    umask(former);
    EXPECT_EQ(ModeOf(folder.Path("b.txt")), 0640U);
}

TEST(FileReplace, GoesThroughLinks) {
    const TemporaryFolder folder;
    folder.Write("real/a.txt", "old");
    folder.Write("other/x", "");
    ASSERT_EQ(symlink("../real/a.txt", folder.Path("other/link").c_str()), 0);
    ASSERT_EQ(symlink(folder.Path("other/link").c_str(), folder.Path("second").c_str()), 0);
    ASSERT_EQ(symlink("real/new.txt", folder.Path("dangling").c_str()), 0);
    EXPECT_TRUE(ReplaceWholeFile(folder.Path("second").c_str(), "new", nullptr));
    EXPECT_TRUE(ReplaceWholeFile(folder.Path("dangling").c_str(), "made", nullptr));
    EXPECT_EQ(folder.Read("real/a.txt"), "new");
    EXPECT_EQ(folder.Read("real/new.txt"), "made");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("second")));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("other/link")));
    EXPECT_EQ(folder.List(), "dangling\nother\nreal\nsecond\n");
}

TEST(FileReplace, GivesUpOnACircleOfLinks) {
    const TemporaryFolder folder;
    ASSERT_EQ(symlink("b", folder.Path("a").c_str()), 0);
    ASSERT_EQ(symlink("a", folder.Path("b").c_str()), 0);
    std::string reason;
    EXPECT_FALSE(ReplaceWholeFile(folder.Path("a").c_str(), "new", &reason));
    EXPECT_EQ(reason, "Too many levels of symbolic links");
    EXPECT_EQ(folder.List(), "a\nb\n");
}

TEST(FileReplace, NeverReplacesADeviceOrPipe) {
    const TemporaryFolder folder;
    ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0600), 0);
    std::string reason;
    std::string bytes;
    EXPECT_FALSE(ReplaceWholeFile(folder.Path("pipe").c_str(), "new", &reason));
    EXPECT_EQ(reason, "not a regular file");
    EXPECT_TRUE(std::filesystem::is_fifo(folder.Path("pipe")));
    EXPECT_EQ(ReadWholeFile(folder.Path("pipe").c_str(), &bytes, &reason), FILE_READ_FAILED);
    EXPECT_EQ(reason, "not a regular file");
    EXPECT_EQ(ReadWholeFile("/dev/zero", &bytes, &reason), FILE_READ_FAILED);
    EXPECT_FALSE(ReplaceWholeFile("C:\\a.txt", "new", &reason));
    EXPECT_EQ(folder.List(), "pipe\n");
}

/// Has the process see nothing but `folder` where it may: those above may let nobody else in. The
/// folder's path from then on, without a delimiter at its end.
std::string EnterAlone(const TemporaryFolder& folder) {
    if (getuid() != 0 || chmod(folder.Path().c_str(), 0777) != 0) return folder.Path();
    return chroot(folder.Path().c_str()) == 0 ? "" : folder.Path();
}

/// Why an ordinary user who can read a file in `folder` cannot replace it.
std::string RefusalToOrdinaryUser(const TemporaryFolder& folder, const std::string& name) {
    const std::string path = EnterAlone(folder) + "/" + name;
    std::string reason;
    std::string bytes;
    if (!BecomeOrdinaryUser()) return "still the administrator";
    if (ReadWholeFile(path.c_str(), &bytes, &reason) != FILE_READ_DONE) return "not even read";
    return ReplaceWholeFile(path.c_str(), "new", &reason) ? "none" : reason;
}

TEST(FileReplace, KeepsTheOldFileWhenTheFolderTakesNoNewOne) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("sub/a.txt", "old");
    ASSERT_EQ(chmod(path.c_str(), 0666), 0);
    ASSERT_EQ(chmod(folder.Path("sub").c_str(), 0555), 0);
    EXPECT_TRUE(Succeeds(StartProcess(
        [&] { return RefusalToOrdinaryUser(folder, "sub/a.txt") == "Permission denied"; })));
    ASSERT_EQ(chmod(folder.Path("sub").c_str(), 0755), 0);
    EXPECT_EQ(folder.Read("sub/a.txt"), "old");
}

TEST(FileReplace, KeepsAWriteProtectedFile) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.txt", "old");
    ASSERT_EQ(chmod(path.c_str(), 0444), 0);
    EXPECT_TRUE(Succeeds(StartProcess(
        [&] { return RefusalToOrdinaryUser(folder, "a.txt") == "Permission denied"; })));
    EXPECT_EQ(folder.Read("a.txt"), "old");
    EXPECT_EQ(folder.List(), "a.txt\n");
}

TEST(FileReplace, RemovesItsTemporaryFileWhenTheDiskIsFull) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.txt", "old");
    EXPECT_TRUE(Succeeds(StartProcess([&path] {
        // As on a full disk: the process may write no more than this.
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {100, 100};
        std::string reason;
        return setrlimit(RLIMIT_FSIZE, &limit) == 0 &&
               !ReplaceWholeFile(path.c_str(), std::string(1000, 'x'), &reason) &&
               reason == "File too large";
    })));
    EXPECT_EQ(folder.Read("a.txt"), "old");
    EXPECT_EQ(folder.List(), "a.txt\n");
}

/// The process is killed in the middle of a save.
class TDyingSystem : public TNativeFileSystem {
public:
    TFileResult Rename(const std::string&, const std::string&) override {
        raise(SIGKILL);
        return {};
    }
};

TEST(FileReplace, RemovesWhatAKilledSaveLeft) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.txt", "old");
    EXPECT_FALSE(Succeeds(StartProcess([&path] {
        TDyingSystem system;
        SetFileSystem(&system);
        return ReplaceWholeFile(path.c_str(), "new", nullptr);
    })));
    EXPECT_EQ(folder.Read("a.txt"), "old");
    const std::string left = folder.List();
    // The new bytes, the hard link to the old file, the lock file and the file.
    ASSERT_EQ(std::count(left.begin(), left.end(), '\n'), 4) << left;
    EXPECT_TRUE(ReplaceWholeFile(folder.Path("b.txt").c_str(), "b", nullptr));
    EXPECT_EQ(folder.List(), left + "b.txt\n");
    EXPECT_TRUE(ReplaceWholeFile(path.c_str(), "newer", nullptr));
    EXPECT_EQ(folder.Read("a.txt"), "newer");
    EXPECT_EQ(folder.List(), "a.txt\nb.txt\n");
}

/// Whatever name a temporary file is to have, something else has it already the first time.
class TPlantingSystem : public TNativeFileSystem {
public:
    explicit TPlantingSystem(bool (*plant)(const std::string& path)) : Plant(plant) {
        SetFileSystem(this);
    }
    ~TPlantingSystem() { SetFileSystem(nullptr); }
    TPlantingSystem(const TPlantingSystem&) = delete;
    TPlantingSystem& operator=(const TPlantingSystem&) = delete;
    TFileResult Create(const std::string& path, bool isPrivate, TFileNumber* file) override {
        if (Planted.empty() && Plant(path)) Planted = path;
        return TNativeFileSystem::Create(path, isPrivate, file);
    }
    TFileResult Link(const std::string& path, const std::string& secondName) override {
        Plant(secondName);
        return TNativeFileSystem::Link(path, secondName);
    }
    std::string Planted;

private:
    bool (*const Plant)(const std::string& path);
};

TEST(FileReplace, WritesNothingThroughWhatHasTheNameOfItsTemporaryFile) {
    const struct {
        const char* Label;
        bool (*Plant)(const std::string& path);
    } rows[] = {
        {"a link", [](const std::string& path) { return symlink("other.txt", path.c_str()) == 0; }},
        {"a link to nothing",
         [](const std::string& path) { return symlink("none", path.c_str()) == 0; }},
        {"a link to itself",
         [](const std::string& path) { return symlink(path.c_str(), path.c_str()) == 0; }},
        {"a folder", [](const std::string& path) { return mkdir(path.c_str(), 0777) == 0; }},
        {"a file", [](const std::string& path) { return mknod(path.c_str(), 0666, 0) == 0; }},
        {"a pipe", [](const std::string& path) { return mkfifo(path.c_str(), 0666) == 0; }},
    };
    for (const auto& row : rows) {
        const TemporaryFolder folder;
        const std::string path = folder.Write("a.txt", "old");
        folder.Write("other.txt", "other");
        std::string planted;
        {
            TPlantingSystem system(row.Plant);
            EXPECT_TRUE(ReplaceWholeFile(path.c_str(), "new", nullptr)) << row.Label;
            planted = system.Planted;
        }
        EXPECT_EQ(folder.Read("a.txt"), "new") << row.Label;
        EXPECT_TRUE(std::filesystem::exists(std::filesystem::symlink_status(planted))) << row.Label;
        // It is taken for one that a save of this process has left.
        EXPECT_TRUE(ReplaceWholeFile(path.c_str(), "newer", nullptr)) << row.Label;
        EXPECT_EQ(folder.Read("a.txt") + folder.Read("other.txt"), "newerother") << row.Label;
        EXPECT_EQ(folder.List(), "a.txt\nother.txt\n") << row.Label;
    }
}

TEST(FileReplace, DropsTheSetIdBitsWithTheOwner) {
    if (getuid() != 0) GTEST_SKIP() << "only the administrator can make such files";
    constexpr uid_t kOwner = 12'345;
    constexpr uid_t kNobody = 65'534;  // the ordinary user
    constexpr gid_t kGroup = 12'346;
    const struct {
        const char* Label;
        bool (*Become)();
        uid_t Owner;
        gid_t Group;
        mode_t Mode;
    } rows[] = {
        {"the administrator", [] { return true; }, kOwner, kGroup, 06777},
        {"a member of the group",
         [] {
             const gid_t group = kGroup;
             return setgroups(1, &group) == 0 && BecomeOrdinaryUser();
         },
         kNobody, kGroup, 0777},
        {"anybody", BecomeOrdinaryUser, kNobody, getgid(), 0777},
    };
    for (const auto& row : rows) {
        const TemporaryFolder folder;
        const std::string path = folder.Write("a.txt", "old");
        ASSERT_EQ(chown(path.c_str(), kOwner, kGroup), 0);
        ASSERT_EQ(chmod(path.c_str(), 06777), 0);
        EXPECT_TRUE(Succeeds(StartProcess([&] {
            const std::string seen = EnterAlone(folder) + "/a.txt";
            return row.Become() && ReplaceWholeFile(seen.c_str(), "new", nullptr);
        }))) << row.Label;
        struct stat status = {};
        ASSERT_EQ(stat(path.c_str(), &status), 0);
        EXPECT_EQ(status.st_uid, row.Owner) << row.Label;
        EXPECT_EQ(status.st_gid, row.Group) << row.Label;
        EXPECT_EQ(status.st_mode & 07777, row.Mode) << row.Label;
    }
}

#ifdef __linux__
// The system calls differ elsewhere.
TEST(FileReplace, KeepsExtendedAttributes) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.txt", "old");
    const std::string value("re\0vision", 9);
    if (setxattr(path.c_str(), "user.origin", value.data(), value.size(), 0) != 0)
        GTEST_SKIP() << "the file system keeps none";
    ASSERT_EQ(setxattr(path.c_str(), "user.empty", "", 0, 0), 0);
    EXPECT_TRUE(ReplaceWholeFile(path.c_str(), "new", nullptr));
    EXPECT_TRUE(KeepBackup(path.c_str(), nullptr));
    for (const std::string& file : {path, path + ".bak"}) {
        char buffer[100] = {};
        const ssize_t size = getxattr(file.c_str(), "user.origin", buffer, sizeof buffer);
        ASSERT_GE(size, 0) << file;
        EXPECT_EQ(std::string(buffer, static_cast<std::size_t>(size)), value) << file;
        EXPECT_EQ(getxattr(file.c_str(), "user.empty", buffer, sizeof buffer), 0) << file;
    }
}

TEST(FileReplace, LeavesOutChecksumsOfTheFormerBytes) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.txt", "old");
    for (const char* checksum : {"security.ima", "security.evm"})
        if (setxattr(path.c_str(), checksum, "sum", 3, 0) != 0)
            GTEST_SKIP() << "the system lets nobody set them";
    EXPECT_TRUE(ReplaceWholeFile(path.c_str(), "new", nullptr));
    for (const char* checksum : {"security.ima", "security.evm"})
        EXPECT_LT(getxattr(path.c_str(), checksum, nullptr, 0), 0) << checksum;
}
#endif

TEST(FileReplace, LeavesAWholeFileWhenTwoProcessesSaveAtOnce) {
    const TemporaryFolder folder;
    const std::string path = folder.Path("a.txt");
    const auto save = [&path](char letter) {
        const std::string bytes(100'000, letter);
        for (int round = 0; round < 50; ++round)
            if (!ReplaceWholeFile(path.c_str(), bytes, nullptr)) return false;
        return true;
    };
    const pid_t first = StartProcess([&save] { return save('a'); });
    const pid_t second = StartProcess([&save] { return save('b'); });
    EXPECT_TRUE(Succeeds(first));
    EXPECT_TRUE(Succeeds(second));
    const std::string bytes = folder.Read("a.txt");
    EXPECT_TRUE(bytes == std::string(100'000, 'a') || bytes == std::string(100'000, 'b'));
    EXPECT_EQ(folder.List(), "a.txt\n");
}

}  // namespace
