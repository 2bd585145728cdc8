#include "services/files/directories.h"
#include "tests/services/names/hostform.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>

namespace {

/// Restores the built-in places.
class Directories : public testing::Test {
protected:
    ~Directories() override {
        SetOrvaneHomeDirectory(nullptr);
        SetTalveraAppDataDirectory(nullptr);
    }
    TemporaryFolder Folder;
};

TEST_F(Directories, HaveTheHomeOfTheRunningProgram) {
#ifdef __linux__
    const auto program = std::filesystem::read_symlink("/proc/self/exe");
    EXPECT_EQ(GetOrvaneHomeDirectory(), program.parent_path().string() + "/");
#else
    const std::string home = GetOrvaneHomeDirectory();
    const std::string tests = "\\tests\\services\\files\\";
    ASSERT_GE(home.size(), tests.size());
    EXPECT_EQ(home.substr(home.size() - tests.size()), tests);
#endif
}

#ifndef _WIN32
// Windows does not take its folder from the environment.
TEST_F(Directories, HaveTheUsersConfigurationFolder) {
    const EnvironmentValue home("HOME", "/users/me");
    const struct {
        const char* Folder;
        const char* Expected;
    } rows[] = {
        {"/config", "/config/hdlbuildfile/"},
        {"/config/", "/config/hdlbuildfile/"},
        {nullptr, "/users/me/.config/hdlbuildfile/"},
        {"", "/users/me/.config/hdlbuildfile/"},
        {"relative", "/users/me/.config/hdlbuildfile/"},
    };
    for (const auto& row : rows) {
        const EnvironmentValue folder("XDG_CONFIG_HOME", row.Folder);
        SetTalveraAppDataDirectory("");
        EXPECT_STREQ(GetTalveraAppDataDirectory(), row.Expected);
    }
}
#endif

TEST_F(Directories, EndWithADelimiterHoweverTheyAreSet) {
    const struct {
        const char* Directory;
        std::string Expected;
    } rows[] = {
        {"/p/q", HostForm("/p/q/")},    {"/p/q/", HostForm("/p/q/")}, {"/p/q\\", HostForm("/p/q/")},
        {"/p/./q/..", HostForm("/p/")}, {"/", HostForm("/")},         {"C:/p", "C:\\p\\"},
        {"\\\\h\\s", "\\\\h\\s\\"},
    };
    for (const auto& row : rows) {
        SetOrvaneHomeDirectory(row.Directory);
        EXPECT_EQ(GetOrvaneHomeDirectory(), row.Expected);
        SetTalveraAppDataDirectory(row.Directory);
        EXPECT_EQ(GetTalveraAppDataDirectory(), row.Expected);
    }
    SetOrvaneHomeDirectory(GetOrvaneHomeDirectory());
    EXPECT_STREQ(GetOrvaneHomeDirectory(), "\\\\h\\s\\");
}

TEST_F(Directories, LeaveATextThatWasHandedOutAsItIs) {
    SetOrvaneHomeDirectory("/first");
    const char* const first = GetOrvaneHomeDirectory();
    SetOrvaneHomeDirectory("/second");
    EXPECT_EQ(first, HostForm("/first/"));
    EXPECT_EQ(GetOrvaneHomeDirectory(), HostForm("/second/"));
}

TEST_F(Directories, TellBeforeAndAfterAChange) {
    static std::string told;
    told.clear();
    SetOrvaneHomeDirectory("/first");
    CallWhenDirectoriesChange([] { told += std::string(GetOrvaneHomeDirectory()) + " "; });
    SetOrvaneHomeDirectory("/second");
    CallWhenDirectoriesChange(nullptr);
    EXPECT_EQ(told, HostForm("/first/") + " " + HostForm("/second/") + " ");
}

TEST_F(Directories, AreNotMadeByReading) {
    SetTalveraAppDataDirectory(Folder.Path("data").c_str());
    EXPECT_EQ(GetTalveraAppDataDirectory(), Folder.Path("data") + HostForm("/"));
    EXPECT_EQ(Folder.List(), "");
}

}  // namespace
