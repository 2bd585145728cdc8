#include "services/ini/inifilenames.h"
#include "services/files/directories.h"
#include "services/ini/propcache.h"
#include "services/names/isfilename.h"
#include "tests/services/names/hostform.h"
#include "tests/support/memoryfolder.h"
#include <gtest/gtest.h>

namespace {

/// Restores the built-in places.
class IniFileNames : public testing::Test {
protected:
    ~IniFileNames() override {
        SetOrvaneHomeDirectory(nullptr);
        SetTalveraAppDataDirectory(nullptr);
        SetIniFile(nullptr);
        SetSystemIniFile(nullptr);
    }
    MemoryFolder Folder;
};

TEST_F(IniFileNames, AreInTheDirectoriesUnlessTheyAreSet) {
    SetTalveraAppDataDirectory("/data");
    SetOrvaneHomeDirectory("C:\\home");
    EXPECT_EQ(GetIniFile()->Canonical(false), HostForm("/data/hdlbuildfile.ini"));
    EXPECT_STREQ(GetSystemIniFile()->Canonical(false), "C:\\home\\hdlbuildfile.ini");
    SetIniFile("/mine/./user.ini");
    SetSystemIniFile("D:/all.ini");
    EXPECT_EQ(GetIniFile()->Canonical(false), HostForm("/mine/user.ini"));
    EXPECT_EQ(GetIniFile(), ISFileName::NewISFileName("/mine/user.ini"));
    EXPECT_STREQ(GetSystemIniFile()->Canonical(false), "D:\\all.ini");
    SetIniFile("");
    SetSystemIniFile(nullptr);
    EXPECT_EQ(GetIniFile()->Canonical(false), HostForm("/data/hdlbuildfile.ini"));
    EXPECT_STREQ(GetSystemIniFile()->Canonical(false), "C:\\home\\hdlbuildfile.ini");
}

TEST_F(IniFileNames, DropThePropertyCacheWhenTheyChange) {
    SetSystemIniFile(Folder.Write("system.ini", "[s]\nk = 0\n").c_str());
    SetIniFile(Folder.Write("first.ini", "[s]\nk = 1\n").c_str());
    EXPECT_EQ(GetSystemPropCache()->GetPrivatePropText("s", "k", ""), "1");
    SetIniFile(Folder.Write("second.ini", "[s]\nk = 2\n").c_str());
    EXPECT_EQ(GetSystemPropCache()->GetPrivatePropText("s", "k", ""), "2");
    SetIniFile(Folder.Path("none.ini").c_str());
    EXPECT_EQ(GetSystemPropCache()->GetPrivatePropText("s", "k", ""), "0");
    SetSystemIniFile(Folder.Path("none.ini").c_str());
    EXPECT_EQ(GetSystemPropCache()->GetPrivatePropText("s", "k", "missing"), "missing");
    SetIniFile(nullptr);
    Folder.Write("data/hdlbuildfile.ini", "[s]\nk = 3\n");
    EXPECT_NE(GetSystemPropCache(), nullptr);
    SetTalveraAppDataDirectory(Folder.Path("data").c_str());
    EXPECT_EQ(GetSystemPropCache()->GetPrivatePropText("s", "k", ""), "3");
}

}  // namespace
