#include "services/files/basedirectory.h"
#include "services/files/pathconventions.h"
#include "services/files/pathpieces.h"
#include "services/files/pathtext.h"
#include "tests/services/names/hostform.h"
#include <gtest/gtest.h>
#include <vector>

namespace {

TEST(BaseDirectory, ResolvesNamesBelowIt) {
    struct Row {
        const char* directory;
        const char* name;
        const char* path;
    };
    const Row rows[] = {
        {"/p/", "a.vhd", "/p/a.vhd"},
        {"/p/q/", "r/My File.vhd", "/p/q/r/My File.vhd"},
        {"/p/", "r\\a.vhd", "/p/r/a.vhd"},
        {"/p/", "r/", "/p/r/"},
        {"/p/", "../a.vhd", "/a.vhd"},
        {"/p/", "./a.vhd", "/p/a.vhd"},
        {"/p/", "r/../a.vhd", "/p/a.vhd"},
        {"/p/", "r//a.vhd", "/p/r/a.vhd"},
        {"/p/", "r/.", "/p/r"},
        {"/p/", "r/..", "/p"},
        {"/p/", "", "/p/"},
        {"/p/", "..a/.b/c..", "/p/..a/.b/c.."},
        {"/", "a", "/a"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.directory) + " + " + row.name);
        TBaseDirectory directory(HostForm(row.directory));
        EXPECT_EQ(directory.Resolve(row.name), HostForm(row.path));
        EXPECT_EQ(directory.Resolve("x"), HostForm((row.directory + std::string("x")).c_str()))
            << "the next name";
    }
}

TEST(BaseDirectory, ResolvesNamesBelowDrivesAndHosts) {
    TBaseDirectory drive("C:\\p\\");
    EXPECT_EQ(drive.Resolve("q/a.vhd"), "C:\\p\\q\\a.vhd");
    EXPECT_EQ(drive.Resolve("q\\a.vhd"), "C:\\p\\q\\a.vhd");
    TBaseDirectory host("\\\\host\\share\\");
    EXPECT_EQ(host.Resolve("q/a.vhd"), "\\\\host\\share\\q\\a.vhd");
}

TEST(BaseDirectory, MakesPathsRelative) {
    struct Row {
        const char* directory;
        const char* path;
        const char* relative;
    };
    const Row rows[] = {
        {"/p/", "/p/a.vhd", "a.vhd"},
        {"/p/", "/p/q/a b.vhd", "q/a b.vhd"},
        {"/p/", "/p/q/", "q/"},
        {"/p/", "/q/a.vhd", "../q/a.vhd"},
        {"/p/", "/pq/a.vhd", "../pq/a.vhd"},
        {"/p/", "/p/", "."},
        {"/p/q/", "/p/a.vhd", "../a.vhd"},
        {"/", "/a.vhd", "a.vhd"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.path) + " from " + row.directory);
        TBaseDirectory directory(HostForm(row.directory));
        EXPECT_EQ(directory.MakeRelative(HostForm(row.path)), row.relative);
    }
    TBaseDirectory drive("C:\\p\\");
    EXPECT_EQ(drive.MakeRelative("C:\\p\\q\\a.vhd"), "q/a.vhd");
    EXPECT_EQ(drive.MakeRelative("D:\\p\\a.vhd"), "D:\\p\\a.vhd");
    // What is left would be read back as a drive.
    EXPECT_EQ(drive.MakeRelative("C:\\p\\d:\\a.vhd"), "C:\\p\\d:\\a.vhd");
    TBaseDirectory none;
    EXPECT_EQ(none.MakeRelative(HostForm("/p/a.vhd")), HostForm("/p/a.vhd"));
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
