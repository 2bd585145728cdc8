#include "flows/run/runfiles.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>

TEST(RunFiles, DigestTexts) {
    // Published values of the 64-bit FNV-1a.
    EXPECT_EQ(DigestOf(""), "cbf29ce484222325");
    EXPECT_EQ(DigestOf("a"), "af63dc4c8601ec8c");
    EXPECT_EQ(DigestOf("foobar"), "85944171f73967e8");
}

TEST(RunFiles, AreWrittenWhole) {
    const TemporaryFolder folder;
    EXPECT_EQ(WriteWhole(folder.Path("a b/c"), "text"), "");
    EXPECT_EQ(folder.Read("a b/c"), "text");
    EXPECT_EQ(WriteWhole(folder.Path("a b/c"), ""), "");
    EXPECT_EQ(folder.Read("a b/c"), "");
    EXPECT_EQ(ReadText(folder.Path("none")), "");
    EXPECT_EQ(folder.List(), "a b\n");
}

TEST(RunFiles, LeaveNothingBehindWhatCannotBeWritten) {
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder.Path("folder/x"));
    folder.Write("file", "bytes");
    for (const std::string path : {"folder", "file/below"}) {
        const std::string reason = WriteWhole(folder.Path(path), "text");
        EXPECT_TRUE(reason.starts_with(folder.Path(path))) << reason;
    }
    EXPECT_EQ(folder.List(), "file\nfolder\n");
    EXPECT_EQ(folder.Read("file"), "bytes");
}

TEST(RunFiles, HaveFolders) {
    const TemporaryFolder folder;
    EXPECT_EQ(MakeFolder(folder.Path("a/b")), "");
    EXPECT_EQ(MakeFolder(folder.Path("a/b")), "");
    EXPECT_TRUE(std::filesystem::is_directory(folder.Path("a/b")));
    folder.Write("file", "");
    EXPECT_TRUE(MakeFolder(folder.Path("file/b")).starts_with(folder.Path("file/b") + ": "));
}

TEST(RunFiles, AreListed) {
    const TemporaryFolder folder;
    folder.Write("folder/a", "");
    std::vector<std::string> names = {"before"};
    EXPECT_EQ(ListFiles(folder.Path("folder"), &names), "");
    EXPECT_EQ(ListFiles(folder.Path("none"), &names), "");
    EXPECT_EQ(names, (std::vector<std::string>{"before", "a"}));
    EXPECT_TRUE(
        ListFiles(folder.Path("folder/a"), &names).starts_with(folder.Path("folder/a") + ": "));
}

TEST(RunFiles, AreRemoved) {
    const TemporaryFolder folder;
    folder.Write("folder/a", "");
    EXPECT_TRUE(RemoveFile(folder.Path("folder")).starts_with(folder.Path("folder") + ": "));
    EXPECT_EQ(RemoveFile(folder.Path("folder/a")), "");
    EXPECT_EQ(RemoveFile(folder.Path("folder/a")), "");
    folder.Write("folder/b/c", "");
    EXPECT_EQ(RemoveFolder(folder.Path("folder")), "");
    EXPECT_EQ(RemoveFolder(folder.Path("folder")), "");
    EXPECT_EQ(folder.List(), "");
}

TEST(RunFiles, KeepTheirTimeUnlessTheirTextChanges) {
    const TemporaryFolder folder;
    const auto file = std::filesystem::path(folder.Write("a", "text"));
    const auto old = std::filesystem::last_write_time(file) - std::chrono::hours(1);
    std::filesystem::last_write_time(file, old);
    EXPECT_EQ(WriteNew(file.string(), "text"), "");
    EXPECT_EQ(std::filesystem::last_write_time(file), old);
    EXPECT_EQ(WriteNew(file.string(), "other"), "");
    EXPECT_NE(std::filesystem::last_write_time(file), old);
    EXPECT_EQ(folder.Read("a"), "other");
}

TEST(RunFiles, HaveStates) {
    const TemporaryFolder folder;
    const std::string file = folder.Write("a.v", "foobar");
    EXPECT_EQ(StateOf(file), "85944171f73967e8 6");
    TFileStates states;
    EXPECT_EQ(states.Of(file), "85944171f73967e8 6");
    folder.Write("a.v", "a");
    EXPECT_EQ(states.Of(file), "85944171f73967e8 6");  // it has looked once
    EXPECT_EQ(StateOf(file), "af63dc4c8601ec8c 1");
    EXPECT_EQ(StateOf(folder.Write("empty", "")), "cbf29ce484222325 0");
    EXPECT_EQ(StateOf(folder.Path("none")), "none");
    EXPECT_EQ(StateOf(folder.Path()), "none");
    const std::string large(200'000, 'x');
    EXPECT_EQ(StateOf(folder.Write("large", large)), DigestOf(large) + " 200000");
}

TEST(RunFiles, HaveDigestsOfSeveralTexts) {
    const auto digest = [](const std::vector<std::string>& texts) {
        TDigest added;
        for (const std::string& text : texts) added.Add(text);
        return added.Text();
    };
    EXPECT_EQ(digest({}), "cbf29ce484222325");
    EXPECT_EQ(digest({"foobar"}), DigestOf({"foobar", 7}));
    EXPECT_EQ(digest({"foo", "bar"}), DigestOf({"foo\0bar", 8}));
    EXPECT_NE(digest({"foob", "ar"}), digest({"foo", "bar"}));
}
