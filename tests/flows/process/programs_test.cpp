#include "flows/process/programs.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>

TEST(Programs, AreWordsOfALine) {
    const struct {
        std::string Word;
        const char* Posix;
        const char* Windows;
    } rows[] = {
        {"a/b-1.v", "a/b-1.v", "a/b-1.v"},
        {"", "''", "\"\""},
        {"a b", "'a b'", "\"a b\""},
        {"it's", "'it'\\''s'", "it's"},
        {"say \"hi\"", "'say \"hi\"'", "\"say \\\"hi\\\"\""},
        {"C:\\a b\\", "'C:\\a b\\'", "\"C:\\a b\\\\\""},
        {"C:\\a\\b", "'C:\\a\\b'", "C:\\a\\b"},
        {"$HOME `ls`;#&", "'$HOME `ls`;#&'", "\"$HOME `ls`;#&\""},
        {"\xC3\xA4", "'\xC3\xA4'", "\xC3\xA4"},
    };
    for (const auto& row : rows) {
#ifdef _WIN32
        EXPECT_EQ(CommandLineOf({"x", row.Word}), std::string("x ") + row.Windows);
#else
        EXPECT_EQ(CommandLineOf({"x", row.Word}), std::string("x ") + row.Posix);
#endif
    }
}

TEST(Programs, AreLookedForInTheFoldersFirst) {
    EXPECT_EQ(FindProgram("hdlbuild-no-such-program", {}), "");
#ifndef _WIN32
    const TemporaryFolder folder;
    const std::string program = folder.Write("a b/sh", "#!/bin/sh\n");
    const std::string plain = FindProgram("sh", {});
    EXPECT_TRUE(plain.ends_with("/sh")) << plain;
    EXPECT_EQ(FindProgram("sh", {folder.Path("a b")}), plain);  // no program yet
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    EXPECT_EQ(FindProgram("sh", {folder.Path("none"), folder.Path("a b")}), program);
    folder.Write("folder/sh/file", "");
    EXPECT_EQ(FindProgram("sh", {folder.Path("folder"), folder.Path("a b")}), program);
#endif
}

TEST(Programs, KnowTheirOwnPath) {
    const std::string name =
        std::filesystem::path(GetOwnProgram()).filename().replace_extension().string();
    EXPECT_EQ(name, "test_flows_process");
}
