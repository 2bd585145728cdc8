#include "services/files/pathpieces.h"
#include "services/files/filenameparts.h"
#include "services/files/pathtext.h"
#include "tests/services/names/hostform.h"
#include <gtest/gtest.h>

namespace {

TEST(PathPieces, PutsATextInThePlaceOfParts) {
    const struct {
        const char* Path;
        unsigned Part;
        const char* Text;
        std::string Expected;
    } rows[] = {
        {"/p/a.v", PART_ALL, "/q/b.sv", "/q/b.sv"},
        {"/p/a.v", PART_NAME, "b", "/p/b.v"},
        {"/p/a.v", PART_EXTENSION, ".sv", "/p/a.sv"},
        {"/p/a.v", PART_NAME | PART_EXTENSION, "b.sv", "/p/b.sv"},
        {"/p/a.v", PART_DIRECTORY, "/q", "/q" + HostForm("/") + "a.v"},
        {"/p/a.v", PART_DIRECTORY, "/q/", "/q/a.v"},
        {"/p/a.v", PART_DIRECTORY, "", "a.v"},
        {"/p/a.v", PART_FOLDERS, "q", "/q" + HostForm("/") + "a.v"},
        {"/p/a.v", PART_FOLDERS, "q\\", "/q\\a.v"},
        {"/p/a.v", PART_DIRECTORY | PART_NAME, "/q/b", "/q/b.v"},
        {"C:\\p\\a.v", PART_DRIVE, "D:", "D:\\p\\a.v"},
        {"C:\\p\\a.v", PART_DIRECTORY, "D:\\q", "D:\\q\\a.v"},
        {"a.v", PART_DIRECTORY, "q", "q" + HostForm("/") + "a.v"},
        {"", PART_NAME, "a", "a"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(PathWithPart(row.Path, row.Part, row.Text), row.Expected)
            << row.Path << " " << row.Part << " " << row.Text;
}

TEST(PathPieces, DropsParts) {
    const struct {
        unsigned Parts;
        const char* Expected;
    } rows[] = {
        {PART_ALL, ""},
        {PART_DRIVE, "\\p\\a.v"},
        {PART_ROOT, "C:p\\a.v"},
        {PART_DIRECTORY, "a.v"},
        {PART_NAME, "C:\\p\\.v"},
        {PART_NAME | PART_EXTENSION, "C:\\p\\"},
        {PART_DIRECTORY | PART_NAME | PART_EXTENSION, ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(PathWithoutParts("C:\\p\\a.v", row.Parts), row.Expected) << row.Parts;
}

TEST(PathPieces, JoinsANameToADirectory) {
    const struct {
        const char* Directory;
        const char* Name;
        std::string Expected;
    } rows[] = {
        {"/p", "a.v", "/p" + HostForm("/") + "a.v"},
        {"/p/", "a.v", "/p/a.v"},
        {"/p", "q/a.v", "/p" + HostForm("/") + "q/a.v"},
        {"C:\\p", "a.v", "C:\\p\\a.v"},
        {"C:", "a.v", "C:\\a.v"},
        {"\\\\h\\s", "a.v", "\\\\h\\s\\a.v"},
        {"/p", "/a.v", "/a.v"},
        {"/p", "C:\\a.v", "C:\\a.v"},
        {"/p", "", "/p" + HostForm("/")},
        {"", "a.v", "a.v"},
        {"", "", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(JoinPath(row.Directory, row.Name), row.Expected)
            << row.Directory << " " << row.Name;
}

TEST(PathPieces, TellsTheParentAndTheDirectoryWithoutItsDelimiter) {
    const struct {
        const char* Path;
        const char* Parent;
        const char* WithoutDelimiter;
    } rows[] = {
        {"", "", ""},
        {"a.v", "", "a.v"},
        {"p/a.v", "p/", "p/a.v"},
        {"/", "/", "/"},
        {"/p", "/", "/p"},
        {"/p/", "/", "/p"},
        {"/p/q", "/p/", "/p/q"},
        {"/p/q/", "/p/", "/p/q"},
        {"C:", "C:", "C:"},
        {"C:\\", "C:\\", "C:\\"},
        {"C:\\p", "C:\\", "C:\\p"},
        {"C:\\p\\", "C:\\", "C:\\p"},
        {"\\\\h\\", "\\\\h\\", "\\\\h\\"},
        {"\\\\h\\s\\", "\\\\h\\", "\\\\h\\s"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ParentOf(row.Path), row.Parent) << row.Path;
        EXPECT_EQ(WithoutFinalDelimiter(row.Path), row.WithoutDelimiter) << row.Path;
    }
}

TEST(PathPieces, MakesPathsRelativeToADirectory) {
    const struct {
        const char* Base;
        const char* Path;
        const char* Expected;
        bool Leaves;
    } rows[] = {
        {"/p/", "/p/a.v", "a.v", false},
        {"/p/", "/p/q/a.v", "q/a.v", false},
        {"/p/", "/p/q/", "q/", false},
        {"/p/", "/p/", ".", false},
        {"/p/", "/p", ".", false},
        {"/p/", "/a.v", "../a.v", true},
        {"/p/q/", "/p/a.v", "../a.v", true},
        {"/p/q/", "/p", "..", true},
        {"/p/q/", "/p/", "../", true},
        {"/p/q/r/", "/", "../../../", true},
        {"/p/q/", "/px/a.v", "../../px/a.v", true},
        {"/", "/a.v", "a.v", false},
        {"/p/", "/p/..a", "..a", false},
        {"C:\\p\\", "C:\\q\\a.v", "../q/a.v", true},
        {"C:\\p\\", "D:\\p\\a.v", "D:\\p\\a.v", false},
        {"C:\\p\\", "/p/a.v", "/p/a.v", false},
        {"\\\\h\\s\\", "\\\\h\\a.v", "../a.v", true},
        {"", "/p/a.v", "/p/a.v", false},
        {"/p/", "", "", false},
    };
    for (const auto& row : rows) {
        const std::string relative = RelativeToDirectory(row.Base, row.Path);
        EXPECT_EQ(relative, row.Expected) << row.Base << " " << row.Path;
        EXPECT_EQ(LeavesDirectory(relative), row.Leaves) << row.Base << " " << row.Path;
    }
}

TEST(PathPieces, SqueezesTheMiddleToALength) {
    const struct {
        const char* Path;
        int Length;
        const char* Expected;
    } rows[] = {
        {"/a/b.v", 6, "/a/b.v"},
        {"/a/b.v", 100, "/a/b.v"},
        {"/abc/def.v", 9, "/ab...f.v"},
        {"/abc/def.v", 8, "/a...f.v"},
        {"/abc/def.v", 4, "...v"},
        {"/abc/def.v", 3, "..."},
        {"/abc/def.v", 2, ".."},
        {"/abc/def.v", 0, ""},
        {"/abc/def.v", -1, ""},
        {"", 0, ""},
        // Two bytes a letter: never half of one.
        {"\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9", 9, "\xC3\xA9...\xC3\xA9"},
        {"\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9", 5, "..."},
    };
    for (const auto& row : rows)
        EXPECT_EQ(SqueezePath(row.Path, row.Length), row.Expected) << row.Path << row.Length;
}

TEST(PathPieces, SqueezesWithoutALookBehindTheText) {
    // The text ends inside a run of bytes that begin no character.
    const std::string_view longer = "abcdefgh\x80\x80\x80\x80";
    EXPECT_EQ(SqueezePath(longer.substr(0, 10), 7), "ab...");
}

TEST(PathPieces, KeepsEveryTextOnce) {
    const std::string first = "kept/a.v";
    char* const kept = KeptPathText(first);
    EXPECT_STREQ(kept, "kept/a.v");
    EXPECT_NE(kept, first.data());
    EXPECT_EQ(KeptPathText(std::string_view("kept/a.vhd").substr(0, 8)), kept);
    EXPECT_NE(KeptPathText("kept/a.vhd"), kept);
}

}  // namespace
