#include "services/names/utilfilename.h"
#include "tests/services/names/hostform.h"
#include <gtest/gtest.h>

namespace {

TEST(UtilFileName, PutsNamesBelowWhatItHolds) {
    const struct {
        const char* Label;
        const char* Held;
        const char* Pushed;
        std::string Expected;
    } rows[] = {
        {"directory", "/p/", "a.v", HostForm("/p/a.v")},
        {"directory without delimiter", "/p/q", "a.v", HostForm("/p/q/a.v")},
        {"relative path", "/p/", "r/s\\a.v", HostForm("/p/r/s/a.v")},
        {"dot-dot", "/p/q/", "../a.v", HostForm("/p/a.v")},
        {"dot", "/p/", ".", HostForm("/p")},
        {"absolute", "/p/", "/q/a.v", HostForm("/q/a.v")},
        {"drive replaces", "/p/", "D:/a.v", "D:\\a.v"},
        {"rooted replaces a drive", "C:\\p\\", "/a.v", HostForm("/a.v")},
        {"host replaces", "C:\\p\\", "\\\\h\\s\\a.v", "\\\\h\\s\\a.v"},
        {"below a drive", "D:\\p", "inc", "D:\\p\\inc"},
        {"below a drive root", "D:", "inc", "D:\\inc"},
        {"below a host", "\\\\h\\s", "inc", "\\\\h\\s\\inc"},
        {"empty", "/p/a.v", "", HostForm("/p/a.v")},
        {"null", "/p/a.v", nullptr, HostForm("/p/a.v")},
        {"onto nothing", "", "/a.v", HostForm("/a.v")},
        {"onto null", nullptr, "C:/a.v", "C:\\a.v"},
    };
    for (const auto& row : rows) {
        TUtilFileName name(row.Held);
        name.PushFileName(row.Pushed);
        EXPECT_STREQ(name.Canonical(), row.Expected.c_str()) << row.Label;
    }
}

TEST(UtilFileName, HoldsADirectoryAfterPushDirectory) {
    const struct {
        const char* Held;
        const char* Pushed;
        std::string Canonical;
        std::string WithoutSlash;
    } rows[] = {
        {"/p", "inc", HostForm("/p/inc/"), HostForm("/p/inc")},
        {"/p", "inc/", HostForm("/p/inc/"), HostForm("/p/inc")},
        {"/p", ".", HostForm("/p/"), HostForm("/p")},
        {"/p", "..", HostForm("/"), HostForm("/")},
        {"/p", "/q", HostForm("/q/"), HostForm("/q")},
        {"D:\\p", "inc", "D:\\p\\inc\\", "D:\\p\\inc"},
        {"D:\\p", "..", "D:\\", "D:\\"},
        {"/p", "C:", "C:\\", "C:\\"},
        {"/p/q", "", HostForm("/p/q"), HostForm("/p/q")},
        {"/p/q", nullptr, HostForm("/p/q"), HostForm("/p/q")},
    };
    for (const auto& row : rows) {
        const std::string label = row.Pushed ? row.Pushed : "null";
        TUtilFileName name(row.Held);
        name.PushDirectory(row.Pushed);
        EXPECT_EQ(name.Canonical(), row.Canonical) << label;
        EXPECT_EQ(name.CanonicalWithoutFinalSlash(), row.WithoutSlash) << label;
    }
}

TEST(UtilFileName, StaysRelativeUntilItsCanonicalFormIsAsked) {
    TUtilFileName name;
    EXPECT_TRUE(name.IsEmpty());
    EXPECT_STREQ(name.Canonical(), "");
    EXPECT_STREQ(name.CanonicalWithoutFinalSlash(), "");
    name.PushFileName("lib");
    name.PushFileName("a.v");
    EXPECT_EQ(name.GetParts(PART_ALL), HostForm("lib/a.v"));
    EXPECT_EQ(name.Canonical(), WorkingDirectory::Text() + HostForm("/lib/a.v"));
    EXPECT_FALSE(name.IsEmpty());
}

TEST(UtilFileName, PopsPartByPart) {
    TUtilFileName name("/p/q/a.v");
    const std::string expected[] = {HostForm("/p/q/"), HostForm("/p/"), HostForm("/"),
                                    HostForm("/")};
    for (const std::string& text : expected) {
        name.Pop();
        EXPECT_EQ(name.Canonical(), text);
    }
    TUtilFileName drive("C:\\p\\");
    drive.Pop();
    EXPECT_STREQ(drive.Canonical(), "C:\\");
    drive.Pop();
    EXPECT_STREQ(drive.Canonical(), "C:\\");
    TUtilFileName relative("a.v");
    relative.Pop();
    EXPECT_TRUE(relative.IsEmpty());
    TUtilFileName above("/p/q/r/..");
    above.Pop();
    EXPECT_EQ(above.Canonical(), HostForm("/p/"));
    TUtilFileName aboveOnDrive("C:\\p\\q\\..");
    aboveOnDrive.Pop();
    EXPECT_STREQ(aboveOnDrive.Canonical(), "C:\\");
    TUtilFileName same("/p/q/.");
    same.Pop();
    EXPECT_EQ(same.Canonical(), HostForm("/p/"));
}

TEST(UtilFileName, TellsAndStripsParts) {
    TUtilFileName name("/p/a.v");
    EXPECT_TRUE(name.HasParts(PART_NAME | PART_EXTENSION));
    EXPECT_TRUE(name.HasParts(PART_ALL));
    EXPECT_FALSE(name.HasParts(PART_DRIVE));
    name.StripParts(PART_EXTENSION);
    EXPECT_STREQ(name.GetParts(PART_ALL), "/p/a");
    EXPECT_FALSE(name.HasParts(PART_EXTENSION));
    name.StripParts(PART_NAME | PART_EXTENSION);
    EXPECT_STREQ(name.GetParts(PART_ALL), "/p/");
    EXPECT_FALSE(name.HasParts(PART_NAME | PART_EXTENSION));
    EXPECT_TRUE(name.HasParts(PART_DIRECTORY));
    name.StripParts(PART_ALL);
    EXPECT_TRUE(name.IsEmpty());
    EXPECT_FALSE(name.HasParts(PART_ALL));
}

TEST(UtilFileName, KeepsTheTextsItGaveOut) {
    // Long enough to be stored outside the string objects.
    const TUtilFileName name("C:\\a_folder_with_a_long_name\\a_file_with_a_long_name.v", 1);
    const char* const directory = name.GetParts(PART_DIRECTORY);
    const char* const extension = name.GetParts(PART_EXTENSION);
    const char* const canonical = name.Canonical();
    const TUtilFileName copy = name;
    EXPECT_EQ(name.GetParts(PART_DIRECTORY), directory);
    EXPECT_EQ(name.Canonical(), canonical);
    EXPECT_STREQ(directory, "C:\\a_folder_with_a_long_name\\");
    EXPECT_STREQ(extension, ".v");
    EXPECT_STREQ(canonical, "C:\\a_folder_with_a_long_name\\a_file_with_a_long_name.v");
    EXPECT_STREQ(copy.GetParts(PART_NAME), "a_file_with_a_long_name");
}

}  // namespace
