#include "services/files/filereplace.h"
#include "tests/services/names/hostform.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>

namespace {

TEST(FileReplace, WritesANewFile) {
    const TemporaryFolder folder;
    std::string reason = "none";
    EXPECT_TRUE(ReplaceWholeFile(folder.Path("a.txt").c_str(), "one\ntwo", &reason));
    EXPECT_EQ(folder.Read("a.txt"), "one\ntwo");
    EXPECT_EQ(reason, "none");
    EXPECT_EQ(folder.List(), "a.txt\n");
}

TEST(FileReplace, PutsTheBytesInThePlaceOfTheOldOnes) {
    const TemporaryFolder folder;
    folder.Write("a.txt", "a longer old text");
    const std::string bytes("\r\n\0\xFF\x1A", 5);
    EXPECT_TRUE(ReplaceWholeFile(folder.Path("a.txt").c_str(), bytes, nullptr));
    EXPECT_EQ(folder.Read("a.txt"), bytes);
    EXPECT_TRUE(ReplaceWholeFile(folder.Path("a.txt").c_str(), "", nullptr));
    EXPECT_EQ(folder.Read("a.txt"), "");
    EXPECT_EQ(folder.List(), "a.txt\n");
}

TEST(FileReplace, TakesPathsAsCallersWriteThem) {
    const TemporaryFolder folder;
    const WorkingDirectory here(folder.Path());
    folder.Write("sub/a.txt", "old");
    EXPECT_TRUE(ReplaceWholeFile("sub\\..\\./sub/a.txt", "new", nullptr));
    EXPECT_EQ(folder.Read("sub/a.txt"), "new");
    std::string bytes;
    EXPECT_EQ(ReadWholeFile("sub\\a.txt", &bytes, nullptr), FILE_READ_DONE);
    EXPECT_EQ(bytes, "new");
    EXPECT_TRUE(ReplaceWholeFile("\xC3\xA9.txt", "accent", nullptr));
    EXPECT_EQ(folder.Read("\xC3\xA9.txt"), "accent");
}

TEST(FileReplace, FailsWithoutTouchingAnything) {
    const TemporaryFolder folder;
    folder.Write("sub/a.txt", "old");
    const struct {
        const char* Label;
        std::string Path;
        const char* PosixReason;
    } rows[] = {
        {"empty", "", "No such file or directory"},
        {"no folder", folder.Path("none/a.txt"), "No such file or directory"},
        {"a folder", folder.Path("sub"), "Is a directory"},
        {"below a file", folder.Path("sub/a.txt/b.txt"), "Not a directory"},
    };
    for (const auto& row : rows) {
        std::string reason;
        EXPECT_FALSE(ReplaceWholeFile(row.Path.c_str(), "new", &reason)) << row.Label;
        if (kOnWindows)
            EXPECT_NE(reason, "") << row.Label;
        else
            EXPECT_EQ(reason, row.PosixReason) << row.Label;
        EXPECT_FALSE(ReplaceWholeFile(row.Path.c_str(), "new", nullptr)) << row.Label;
    }
    EXPECT_FALSE(ReplaceWholeFile(nullptr, "new", nullptr));
    EXPECT_EQ(folder.List(), "sub\n");
    EXPECT_EQ(folder.Read("sub/a.txt"), "old");
}

TEST(FileReplace, ReadsWholeFiles) {
    const TemporaryFolder folder;
    std::string large;
    for (int i = 0; i < 300'000; ++i) large += static_cast<char>(i % 251);
    folder.Write("large", large);
    folder.Write("empty", "");
    std::string bytes = "before";
    std::string reason = "none";
    EXPECT_EQ(ReadWholeFile(folder.Path("large").c_str(), &bytes, &reason), FILE_READ_DONE);
    EXPECT_EQ(bytes, large);
    EXPECT_EQ(ReadWholeFile(folder.Path("empty").c_str(), &bytes, &reason), FILE_READ_DONE);
    EXPECT_EQ(bytes, "");
    EXPECT_EQ(reason, "none");
}

TEST(FileReplace, TellsMissingFromUnreadableFiles) {
    const TemporaryFolder folder;
    folder.Write("a.txt", "x");
    const struct {
        const char* Label;
        std::string Path;
        TFileReadResult Result;
        const char* PosixReason;
    } rows[] = {
        {"empty", "", FILE_READ_MISSING, "No such file or directory"},
        {"missing", folder.Path("b.txt"), FILE_READ_MISSING, "No such file or directory"},
        {"no folder", folder.Path("none/b.txt"), FILE_READ_MISSING, "No such file or directory"},
        {"a file for a folder", folder.Path("a.txt/b.txt"), FILE_READ_MISSING, "Not a directory"},
        {"a folder", folder.Path(), FILE_READ_FAILED, "Is a directory"},
    };
    for (const auto& row : rows) {
        std::string bytes;
        std::string reason;
        EXPECT_EQ(ReadWholeFile(row.Path.c_str(), &bytes, &reason), row.Result) << row.Label;
        if (kOnWindows)
            EXPECT_NE(reason, "") << row.Label;
        else
            EXPECT_EQ(reason, row.PosixReason) << row.Label;
    }
    EXPECT_EQ(ReadWholeFile(nullptr, nullptr, nullptr), FILE_READ_MISSING);
    EXPECT_EQ(ReadWholeFile(folder.Path("a.txt").c_str(), nullptr, nullptr), FILE_READ_DONE);
}

TEST(FileReplace, KeepsABackupBeside) {
    const TemporaryFolder folder;
    folder.Write("a.xml", "broken");
    folder.Write("a.xml.bak", "a longer older backup");
    EXPECT_TRUE(KeepBackup(folder.Path("a.xml").c_str(), nullptr));
    EXPECT_EQ(folder.Read("a.xml.bak"), "broken");
    EXPECT_EQ(folder.Read("a.xml"), "broken");
    std::string reason;
    EXPECT_FALSE(KeepBackup(folder.Path("b.xml").c_str(), &reason));
    EXPECT_NE(reason, "");
    EXPECT_EQ(folder.List(), "a.xml\na.xml.bak\n");
}

TEST(FileReplace, MakesTheFoldersOfAFile) {
    const TemporaryFolder folder;
    EXPECT_TRUE(MakeDirectoryOf(folder.Path("a/b/c/d.txt").c_str()));
    EXPECT_TRUE(MakeDirectoryOf(folder.Path("a/b/c/d.txt").c_str()));
    EXPECT_EQ(folder.List(), "a\n");
    EXPECT_TRUE(ReplaceWholeFile(folder.Path("a/b/c/d.txt").c_str(), "x", nullptr));
    EXPECT_FALSE(MakeDirectoryOf(folder.Path("a/b/c/d.txt/e.txt").c_str()));
    EXPECT_FALSE(MakeDirectoryOf(nullptr));
}

}  // namespace
