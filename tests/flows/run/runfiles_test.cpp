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
    std::filesystem::create_directories(folder.Path("folder/x"));
    EXPECT_TRUE(
        WriteWhole(folder.Path("folder"), "text").starts_with(folder.Path("folder") + ": "));
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

TEST(RunFiles, HoldTheDigestOfASource) {
    const TemporaryFolder folder;
    const std::string source = folder.Write("a.v", "foobar");
    const std::string output = folder.Path("out/digest");
    EXPECT_EQ(WriteDigest(source, output), "");
    EXPECT_EQ(folder.Read("out/digest"), "85944171f73967e8 6\n");
    const auto old = std::filesystem::last_write_time(output) - std::chrono::hours(1);
    std::filesystem::last_write_time(output, old);
    folder.Write("a.v", "foobar");
    EXPECT_EQ(WriteDigest(source, output), "");
    EXPECT_EQ(std::filesystem::last_write_time(output), old);
    folder.Write("a.v", "a");
    EXPECT_EQ(WriteDigest(source, output), "");
    EXPECT_EQ(folder.Read("out/digest"), "af63dc4c8601ec8c 1\n");
    EXPECT_EQ(WriteDigest(folder.Path("none"), output),
              folder.Path("none") + ": the file does not exist");
    EXPECT_EQ(folder.Read("out/digest"), "af63dc4c8601ec8c 1\n");
}
