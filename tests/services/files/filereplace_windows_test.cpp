#include "services/files/filereplace.h"
#include "tests/support/lockfilename.h"
#include "tests/support/temporaryfolder.h"
#include <atomic>
#include <filesystem>
#include <gtest/gtest.h>
#include <thread>
#include <windows.h>
// It needs the one above.
#include <sddl.h>

// Files that are open elsewhere or write-protected.

namespace {

constexpr DWORD kAllSharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// A file that is open for reading.
class TOpened {
public:
    TOpened(const std::string& path, DWORD sharing)
        : Handle(CreateFileW(std::filesystem::path(path).c_str(), GENERIC_READ, sharing, nullptr,
                             OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)),
          Error(Handle == INVALID_HANDLE_VALUE ? GetLastError() : 0) {}
    ~TOpened() {
        if (Handle != INVALID_HANDLE_VALUE) CloseHandle(Handle);
    }
    TOpened(const TOpened&) = delete;
    TOpened& operator=(const TOpened&) = delete;

    DWORD GetError() const { return Error; }
    std::string Read() const {
        char bytes[1'000] = {};
        DWORD count = 0;
        return ReadFile(Handle, bytes, sizeof bytes, &count, nullptr) ? std::string(bytes, count)
                                                                      : "<unreadable>";
    }

private:
    HANDLE Handle;
    DWORD Error;
};

DWORD AttributesOf(const std::string& path) {
    return GetFileAttributesW(std::filesystem::path(path).c_str());
}

/// The access rights of a file as the system writes them, with what is inherited.
std::string RightsOf(const std::string& path) {
    DWORD size = 0;
    const std::filesystem::path native = path;
    GetFileSecurityW(native.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::string bytes(size, '\0');
    char* text = nullptr;
    if (!GetFileSecurityW(native.c_str(), DACL_SECURITY_INFORMATION, bytes.data(), size, &size) ||
        !ConvertSecurityDescriptorToStringSecurityDescriptorA(
            bytes.data(), SDDL_REVISION_1, DACL_SECURITY_INFORMATION, &text, nullptr))
        return "<unknown>";
    std::string rights = text;
    LocalFree(text);
    return rights;
}

/// Lets the owner alone at a file.
bool CloseForOthers(const std::string& path) {
    PSECURITY_DESCRIPTOR rights = nullptr;
    if (!ConvertStringSecurityDescriptorToSecurityDescriptorA("D:P(A;;FA;;;OW)", SDDL_REVISION_1,
                                                              &rights, nullptr))
        return false;
    const bool isDone = SetFileSecurityW(std::filesystem::path(path).c_str(),
                                         DACL_SECURITY_INFORMATION, rights) != 0;
    LocalFree(rights);
    return isDone;
}

}  // namespace

TEST(FileReplaceOnWindows, LeavesNoMomentWithoutFile) {
    constexpr int kSaves = 100;
    constexpr int kLooksAnOpening = 2'000;
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.txt", "old");
    const std::filesystem::path native = path;
    std::atomic<bool> hasEnded = false;
    int missing = 0;
    int opened = 0;
    std::thread reader([&] {
        for (int looks = 1; !hasEnded; ++looks) {
            if (GetFileAttributesW(native.c_str()) == INVALID_FILE_ATTRIBUTES) ++missing;
            if (looks % kLooksAnOpening != 0) continue;
            const DWORD error = TOpened(path, kAllSharing).GetError();
            if (error == 0) ++opened;
            if (error == ERROR_FILE_NOT_FOUND) ++missing;
        }
    });
    int saved = 0;
    for (int i = 0; i < kSaves; ++i)
        if (ReplaceWholeFile(path.c_str(), std::to_string(i), nullptr)) ++saved;
    hasEnded = true;
    reader.join();
    EXPECT_EQ(saved, kSaves);
    EXPECT_EQ(missing, 0);
    EXPECT_GT(opened, 0);
    EXPECT_EQ(folder.Read("a.txt"), "99");
    EXPECT_EQ(folder.List(), "a.txt\n");
}

TEST(FileReplaceOnWindows, KeepsAccessRightsAndAttributes) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.txt", "old");
    const std::filesystem::path native = path;
    const std::string usual = RightsOf(path);
    ASSERT_TRUE(CloseForOthers(path));
    ASSERT_TRUE(SetFileAttributesW(native.c_str(), FILE_ATTRIBUTE_HIDDEN));
    const std::string rights = RightsOf(path);
    ASSERT_NE(rights, usual);
    ASSERT_TRUE(ReplaceWholeFile(path.c_str(), "new", nullptr));
    EXPECT_EQ(RightsOf(path), rights);
    EXPECT_EQ(AttributesOf(path) & FILE_ATTRIBUTE_HIDDEN, 0UL + FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ(folder.Read("a.txt"), "new");
}

// The system may keep the old file under another name as long as somebody has it open.
TEST(FileReplaceOnWindows, LetsThoseThatHaveTheFileOpenReadOn) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.txt", "old");
    {
        const TOpened opened(path, kAllSharing);
        ASSERT_EQ(opened.GetError(), 0U);
        EXPECT_TRUE(ReplaceWholeFile(path.c_str(), "new", nullptr));
        EXPECT_EQ(opened.Read(), "old");
    }
    EXPECT_EQ(folder.Read("a.txt"), "new");
    EXPECT_EQ(folder.List(), "a.txt\n");
}

TEST(FileReplaceOnWindows, KeepsAFileThatOthersDoNotGiveAway) {
    for (const DWORD sharing :
         {0UL, 0UL + FILE_SHARE_READ, 0UL + FILE_SHARE_READ + FILE_SHARE_WRITE}) {
        const TemporaryFolder folder;
        const std::string path = folder.Write("a.txt", "old");
        {
            const TOpened opened(path, sharing);
            ASSERT_EQ(opened.GetError(), 0U) << sharing;
            std::string reason;
            EXPECT_FALSE(ReplaceWholeFile(path.c_str(), "new", &reason)) << sharing;
            EXPECT_NE(reason, "") << sharing;
            EXPECT_EQ(opened.Read(), "old") << sharing;
        }
        EXPECT_EQ(folder.Read("a.txt"), "old") << sharing;
        EXPECT_EQ(folder.List(), "a.txt\n") << sharing;
        EXPECT_TRUE(ReplaceWholeFile(path.c_str(), "new", nullptr)) << sharing;
        EXPECT_EQ(folder.Read("a.txt"), "new") << sharing;
        EXPECT_EQ(folder.List(), "a.txt\n") << sharing;
    }
}

TEST(FileReplaceOnWindows, KeepsAWriteProtectedFile) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.txt", "old");
    const std::filesystem::path native = path;
    ASSERT_TRUE(SetFileAttributesW(native.c_str(), FILE_ATTRIBUTE_READONLY));
    std::string reason;
    EXPECT_FALSE(ReplaceWholeFile(path.c_str(), "new", &reason));
    EXPECT_NE(reason, "");
    EXPECT_EQ(folder.Read("a.txt"), "old");
    EXPECT_EQ(folder.List(), "a.txt\n");
    EXPECT_EQ(AttributesOf(path) & FILE_ATTRIBUTE_READONLY, 0UL + FILE_ATTRIBUTE_READONLY);
    ASSERT_TRUE(SetFileAttributesW(native.c_str(), FILE_ATTRIBUTE_NORMAL));
    EXPECT_TRUE(ReplaceWholeFile(path.c_str(), "new", nullptr));
    EXPECT_EQ(folder.Read("a.txt"), "new");
}

TEST(FileReplaceOnWindows, NamesWhatIsInTheWayOfTheLockFile) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.txt", "old");
    const std::string lockFile = folder.Path(LockFileName("a.txt"));
    std::filesystem::create_directory(lockFile);
    std::string reason;
    EXPECT_FALSE(ReplaceWholeFile(path.c_str(), "new", &reason));
    const std::string begin = "\"" + lockFile + "\" is in the way: ";
    EXPECT_EQ(reason.substr(0, begin.size()), begin);
    EXPECT_GT(reason.size(), begin.size());
    EXPECT_EQ(folder.Read("a.txt"), "old");
}
