#include "flows/filepatterns.h"
#include <gtest/gtest.h>
#include <string>

TEST(FilePatterns, MeanWholePaths) {
    const struct {
        const char* Pattern;
        const char* Path;
        bool IsMeant;
    } rows[] = {
        {"a.vhd", "a.vhd", true},
        {"A.vhd", "a.VHD", true},
        {"a.vhd", "a.vhdl", false},
        {"", "", true},
        {"", "a", false},
        {"*", "a", true},
        {"*", "", false},
        {"*", "a/b", false},
        {"*.v", "a.v", true},
        {"*.v", ".v", true},
        {"a*b*c", "axxbxxbyc", true},
        {"a*b*c", "axxbxxbyd", false},
        {"?.v", "a.v", true},
        {"?.v", "ab.v", false},
        {"?.v", ".v", false},
        {"?.v", "\xC3\xA4.v", true},  // one character of two bytes
        {"??.v", "\xC3\xA4.v", false},
        {"rtl/*.v", "rtl\\a.v", true},
        {"rtl/*.v", "a.v", false},
        {"**/a.v", "a.v", true},
        {"**/a.v", "x/y/a.v", true},
        {"**/a.v", "x/y/b.v", false},
        {"rtl/**", "rtl", true},
        {"rtl/**", "rtl/x/y.v", true},
        {"rtl/**/x/*.v", "rtl/x/a/x/b.v", true},
        {"rtl/**/x/*.v", "rtl/x/a/b.v", false},
        {"a/**/b/**/c", "a/b/x/b/c", true},
        {"a**b", "a/b", false},
        {"a**b", "axb", true},
        {"/**", "/a/b", true},
        {"/**", "a/b", false},
        {"**/", "a/b/", true},
    };
    for (const auto& row : rows)
        EXPECT_EQ(MatchesFilePattern(row.Pattern, row.Path), row.IsMeant)
            << row.Pattern << " " << row.Path;
}

TEST(FilePatterns, AreToldFromPaths) {
    EXPECT_TRUE(IsFilePattern("rtl/*.v"));
    EXPECT_TRUE(IsFilePattern("a?"));
    EXPECT_FALSE(IsFilePattern("rtl/[a].v"));
    EXPECT_FALSE(IsFilePattern(""));
}

// Each further wildcard must not multiply the time.
TEST(FilePatterns, TakeNoLongerForManyWildcards) {
    std::string pattern;
    std::string parts;
    for (int i = 0; i < 2000; ++i) {
        pattern += "*a";
        parts += "**/a/";
    }
    EXPECT_FALSE(MatchesFilePattern(pattern + "b", std::string(4000, 'a')));
    std::string path;
    for (int i = 0; i < 4000; ++i) path += "a/";
    EXPECT_FALSE(MatchesFilePattern(parts + "b", path));
}
