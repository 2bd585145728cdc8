#include "services/files/basedirectory.h"
#include "services/files/pathconventions.h"
#include "services/files/pathpieces.h"
#include "services/files/pathtext.h"
#include "tests/services/names/hostform.h"
#include <gtest/gtest.h>
#include <vector>

namespace {

TEST(BaseDirectory, TakesNamesToPathsAndPathsBackToNames) {
    const struct {
        const char* Directory;
        const char* Name;
        const char* Path;
        const char* Relative;
    } rows[] = {
        {"/p/", "a.vhd", "/p/a.vhd", "a.vhd"},
        {"/p/q/", "r/My File.vhd", "/p/q/r/My File.vhd", "r/My File.vhd"},
        {"/p/", "r\\a.vhd", "/p/r/a.vhd", "r/a.vhd"},
        {"/p/", "r/", "/p/r/", "r/"},
        {"/p/", "../a.vhd", "/a.vhd", "../a.vhd"},
        {"/p/", "../q/a.vhd", "/q/a.vhd", "../q/a.vhd"},
        {"/p/", "../pq/a.vhd", "/pq/a.vhd", "../pq/a.vhd"},
        {"/p/", "./a.vhd", "/p/a.vhd", "a.vhd"},
        {"/p/", "r/../a.vhd", "/p/a.vhd", "a.vhd"},
        {"/p/", "r//a.vhd", "/p/r/a.vhd", "r/a.vhd"},
        {"/p/", "r/.", "/p/r", "r"},
        {"/p/", "r/..", "/p", "."},
        {"/p/", "", "/p/", "."},
        {"/p/", "..a/.b/c..", "/p/..a/.b/c..", "..a/.b/c.."},
        {"/", "a", "/a", "a"},
        {"C:\\p\\", "q/a.vhd", "C:\\p\\q\\a.vhd", "q/a.vhd"},
        {"C:\\p\\", "q\\a.vhd", "C:\\p\\q\\a.vhd", "q/a.vhd"},
        {"\\\\host\\share\\", "q/a.vhd", "\\\\host\\share\\q\\a.vhd", "q/a.vhd"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.Directory) + " + " + row.Name);
        const std::string text = HostForm(row.Directory);
        TBaseDirectory directory(text);
        EXPECT_EQ(directory.Resolve(row.Name), HostForm(row.Path));
        EXPECT_EQ(directory.Resolve("x"), text + "x") << "the next name";
        EXPECT_EQ(directory.MakeRelative(HostForm(row.Path)), row.Relative);
    }
}

TEST(BaseDirectory, LeavesPathsAsTheyAreThatWouldNotBeReadBack) {
    TBaseDirectory drive("C:\\p\\");
    EXPECT_EQ(drive.MakeRelative("D:\\p\\a.vhd"), "D:\\p\\a.vhd");
    EXPECT_EQ(drive.MakeRelative("C:\\p\\d:\\a.vhd"), "C:\\p\\d:\\a.vhd") << "a drive again";
    for (TBaseDirectory none : {TBaseDirectory(), TBaseDirectory("")}) {
        EXPECT_EQ(none.MakeRelative(HostForm("/p/a.vhd")), HostForm("/p/a.vhd"));
        EXPECT_EQ(none.Resolve("a.vhd"), CanonicalPath(WorkingDirectory::Text() + "/a.vhd"));
    }
}

TEST(BaseDirectory, MayBeGivenInAnyForm) {
    EXPECT_EQ(TBaseDirectory("/p//q/../").Resolve("a.vhd"), HostForm("/p/a.vhd"));
    EXPECT_EQ(TBaseDirectory("C:/p/").Resolve("a.vhd"), "C:\\p\\a.vhd");
    EXPECT_EQ(TBaseDirectory("/p/./").MakeRelative(HostForm("/p/q/a.vhd")), "q/a.vhd");
    EXPECT_EQ(TBaseDirectory("/p").Resolve("a.vhd"), HostForm("/p/a.vhd"));
    EXPECT_EQ(TBaseDirectory("/p").MakeRelative(HostForm("/p/a.vhd")), "a.vhd");
    // What such a directory begins with lifts a limit where a host or a drive follows.
    EXPECT_EQ(TBaseDirectory("\\\\?\\").Resolve("UNC\\host\\a"), "\\\\host\\a");
}

/// Texts of pieces that paths are made of, put together in all ways up to a length.
std::vector<std::string> MakeTexts() {
    const std::vector<std::string> pieces = {"a", ".", "..", "/", "\\", "B:", "//", "c.d"};
    std::vector<std::string> texts{""};
    std::size_t begin = 0;
    for (int length = 1; length <= 4; ++length) {
        const std::size_t end = texts.size();
        for (std::size_t i = begin; i < end; ++i)
            for (const std::string& piece : pieces) texts.push_back(texts[i] + piece);
        begin = end;
    }
    return texts;
}

TEST(BaseDirectory, AgreesWithTheGeneralOperationsOnAllShortTexts) {
    const std::vector<std::string> directories = {HostForm("/"), HostForm("/p/"), HostForm("/p/a/"),
                                                  "C:\\",        "C:\\a\\",       "\\\\h\\",
                                                  "\\\\h\\a\\"};
    for (const std::string& text : directories) {
        TBaseDirectory directory(text);
        for (const std::string& name : MakeTexts()) {
            if (!IsRelativePath(name.c_str())) continue;
            const std::string path = CanonicalPath(JoinPath(text, name));
            ASSERT_EQ(directory.Resolve(name), path) << text << " + " << name;
            ASSERT_EQ(directory.MakeRelative(path), RelativeToDirectory(text, path))
                << path << " from " << text;
        }
    }
}

}  // namespace
