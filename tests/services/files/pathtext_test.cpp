#include "services/files/pathtext.h"
#include "services/names/ifilename.h"
#include "tests/services/names/hostform.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>

namespace {

TEST(CanonicalPath, ResolvesAbsolutePathsWithoutTheDisk) {
    const struct {
        const char* Label;
        const char* Path;
        std::string Expected;
    } rows[] = {
        {"empty", "", ""},
        {"rooted", "/a/b.v", HostForm("/a/b.v")},
        {"letter case", "/A/b.V", HostForm("/A/b.V")},
        {"final delimiter", "/a/b/", HostForm("/a/b/")},
        {"final backslash", "/a/b\\", HostForm("/a/b/")},
        {"several final delimiters", "/a/b//\\", HostForm("/a/b/")},
        {"mixed delimiters", "/a\\b/c\\d.v", HostForm("/a/b/c/d.v")},
        {"doubled delimiters", "/a//b\\\\c.v", HostForm("/a/b/c.v")},
        {"single dots", "/./a/./b/.", HostForm("/a/b")},
        {"single dot and delimiter", "/a/./", HostForm("/a/")},
        {"dot-dot", "/a/b/../c.v", HostForm("/a/c.v")},
        {"dot-dot over several", "/a/b/c/../../d.v", HostForm("/a/d.v")},
        {"dot-dot last", "/a/b/..", HostForm("/a")},
        {"dot-dot and delimiter last", "/a/b/../", HostForm("/a/")},
        {"dot-dot at the root", "/../../a.v", HostForm("/a.v")},
        {"dot-dot down to the root", "/a/../..", HostForm("/")},
        {"names of dots", "/.../a./..b/.c", HostForm("/.../a./..b/.c")},
        {"root", "/", HostForm("/")},
        {"root as backslash", "\\", HostForm("/")},
        {"rooted by backslash", "\\a\\b.v", HostForm("/a/b.v")},
        {"blanks", "/a b/ c .v", HostForm("/a b/ c .v")},
        {"UTF-8", "/\xC3\xA9t\xC3\xA9/\xE6\xBC\xA2.v",
         HostForm("/\xC3\xA9t\xC3\xA9/\xE6\xBC\xA2.v")},
        {"drive", "C:\\a\\b.v", "C:\\a\\b.v"},
        {"drive with slashes", "c:/a/b.v", "c:\\a\\b.v"},
        {"drive and directory", "C:/a/b/", "C:\\a\\b\\"},
        {"drive root", "C:\\", "C:\\"},
        {"drive alone", "C:", "C:\\"},
        {"dot-dot at a drive", "C:\\..\\..\\a.v", "C:\\a.v"},
        {"dot-dot down to a drive", "C:\\a\\..", "C:\\"},
        {"host", "\\\\host\\share\\a.v", "\\\\host\\share\\a.v"},
        {"host with slashes", "\\\\host/share/a.v", "\\\\host\\share\\a.v"},
        {"host and directory", "\\\\host\\share\\", "\\\\host\\share\\"},
        {"host alone", "\\\\host", "\\\\host\\"},
        {"dot-dot at a host", "\\\\host\\share\\..\\..\\..\\a.v", "\\\\host\\a.v"},
        {"three backslashes", "\\\\\\a.v", HostForm("/a.v")},
        {"length prefix", "\\\\?\\C:\\a\\..\\b.v", "C:\\b.v"},
        {"length prefix that appears behind dot-dot", "\\\\?\\a\\..\\C:\\b", "C:\\b"},
        {"length prefix as a host", "\\\\?\\UNC\\?\\UNC\\?\\C:\\b", "C:\\b"},
        {"length prefix and host", "\\\\?\\UNC\\host\\share\\b.v", "\\\\host\\share\\b.v"},
        {"two slashes", "//host/a.v", kOnWindows ? "\\\\host\\a.v" : "/host/a.v"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(CanonicalPath(row.Path), row.Expected) << row.Label;
        EXPECT_EQ(CanonicalPath(row.Expected), row.Expected) << row.Label << ", once more";
    }
}

TEST(CanonicalPath, TakesRelativePathsAgainstTheWorkingDirectory) {
    const TemporaryFolder folder;
    folder.Write("sub/file.v", "");
    const WorkingDirectory here(folder.Path());
    const std::string directory = WorkingDirectory::Text();
    const std::string root = directory + HostForm("/");
    const struct {
        const char* Label;
        const char* Path;
        std::string Expected;
    } rows[] = {
        {"name", "a.v", root + "a.v"},
        {"below", "sub/x/a.v", root + HostForm("sub/x/a.v")},
        {"backslash", "sub\\a.v", root + HostForm("sub/a.v")},
        {"directory", "sub/", root + HostForm("sub/")},
        {"dot", ".", directory},
        {"dot and delimiter", "./", root},
        {"out and in", "sub/../a.v", root + "a.v"},
        {"above", "../a.v", directory.substr(0, directory.find_last_of("/\\") + 1) + "a.v"},
        {"up to the root", "../../../../../../../../../../../../../../../..",
         kOnWindows ? directory.substr(0, 3) : "/"},
    };
    for (const auto& row : rows) EXPECT_EQ(CanonicalPath(row.Path), row.Expected) << row.Label;
}

TEST(CanonicalPath, TakesADriveWithoutDelimiterForANameWhereThereAreNoDrives) {
    if (kOnWindows) GTEST_SKIP() << "there the drive's own working directory counts";
    const WorkingDirectory here("/");
    EXPECT_EQ(CanonicalPath("a:b"), "/a:b");
    EXPECT_TRUE(IsRelativePath("a:b"));
    EXPECT_TRUE(IsOnlyFileName("a:b"));
}

TEST(CanonicalPath, HasNoLongestLength) {
    std::string path;
    for (int i = 0; i < 20'000; ++i) path += "/folder" + std::to_string(i);
    EXPECT_EQ(CanonicalPath(path), HostForm(path));
    std::string steps;
    for (int i = 0; i < 20'000; ++i) steps += "/..";
    EXPECT_EQ(CanonicalPath(path + steps + "/a.v"), HostForm("/a.v"));
}

TEST(PathText, TellsRelativePathsAndBareNames) {
    const struct {
        const char* Path;
        bool IsRelative;
        bool IsName;
    } rows[] = {
        {nullptr, true, false},     {"", true, false},       {"a", true, true},
        {"a.v", true, true},        {".", true, false},      {"..", true, false},
        {"...", true, true},        {"./a", true, false},    {"a/b", true, false},
        {"a\\b", true, false},      {"a/", true, false},     {"/a", false, false},
        {"\\a", false, false},      {"C:\\a", false, false}, {"c:/a", false, false},
        {"C:", false, false},       {"CC:a", true, true},    {"1:", true, true},
        {"\\\\h\\a", false, false}, {"//h/a", false, false}, {"a b.v", true, true},
        {"a:/b", false, false},     {"z:/b", false, false},  {"A:/b", false, false},
        {"Z:/b", false, false},     {"`:/b", true, false},   {"{:/b", true, false},
        {"@:/b", true, false},      {"[:/b", true, false},
    };
    for (const auto& row : rows) {
        const std::string label = row.Path ? row.Path : "null";
        EXPECT_EQ(IsRelativePath(row.Path), row.IsRelative) << label;
        EXPECT_EQ(IsOnlyFileName(row.Path), row.IsName) << label;
    }
}

TEST(PathText, QuotesOnlyWhatNeedsIt) {
    const struct {
        const char* Text;
        const char* Expected;
    } rows[] = {
        {"", ""},
        {"a.v", "a.v"},
        {"a~b.v", "a~b.v"},
        {"a b.v", "\"a b.v\""},
        {"a\tb.v", "\"a\tb.v\""},
        {"a\nb.v", "a\nb.v"},
        {"\"a b.v\"", "\"a b.v\""},
        {"a \"b.v", "a \"b.v"},
    };
    for (const auto& row : rows) {
        TMyString text(row.Text);
        EXPECT_EQ(&GetStringQuotedIfNecessary(text), &text);
        EXPECT_EQ(text.Str(), row.Expected) << row.Text;
    }
}

/// The five parts of a path, each in brackets.
std::string PartsOf(const char* path) {
    std::string text;
    for (const unsigned part : {PART_DRIVE, PART_ROOT, PART_FOLDERS, PART_NAME, PART_EXTENSION})
        text += "[" + PathParts(path, part) + "]";
    return text;
}

TEST(PathText, CutsPathsIntoParts) {
    const struct {
        const char* Path;
        const char* Expected;
    } rows[] = {
        {"", "[][][][][]"},
        {"a.v", "[][][][a][.v]"},
        {"a", "[][][][a][]"},
        {"a.", "[][][][a][.]"},
        {".log", "[][][][][.log]"},
        {"a.tar.gz", "[][][][a.tar][.gz]"},
        {".", "[][][][.][]"},
        {"..", "[][][][..][]"},
        {"a.b/c", "[][][a.b/][c][]"},
        {"/", "[][/][][][]"},
        {"/a.v", "[][/][][a][.v]"},
        {"/p/q/a.v", "[][/][p/q/][a][.v]"},
        {"/p/q/", "[][/][p/q/][][]"},
        {"p\\q/a.v", "[][][p\\q/][a][.v]"},
        {"C:", "[C:][][][][]"},
        {"C:\\", "[C:][\\][][][]"},
        {"C:\\p\\a.v", "[C:][\\][p\\][a][.v]"},
        {"\\\\host", "[\\\\host][][][][]"},
        {"\\\\host\\share\\a.v", "[\\\\host][\\][share\\][a][.v]"},
    };
    for (const auto& row : rows) EXPECT_EQ(PartsOf(row.Path), row.Expected) << row.Path;
}

TEST(PathText, JoinsTheSelectedParts) {
    const struct {
        unsigned Parts;
        const char* Expected;
    } rows[] = {
        {PART_ALL, "C:\\p\\a.v"},
        {PART_DIRECTORY, "C:\\p\\"},
        {PART_NAME | PART_EXTENSION, "a.v"},
        {PART_DIRECTORY | PART_NAME, "C:\\p\\a"},
        {PART_DRIVE | PART_EXTENSION, "C:.v"},
        {31, "C:\\p\\a.v"},
        {32, ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(PathParts("C:\\p\\a.v", row.Parts), row.Expected) << row.Parts;
}

}  // namespace
