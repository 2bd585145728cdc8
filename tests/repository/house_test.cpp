#include "tests/repository/sources.h"
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <regex>
#include <set>
#include <string>

namespace {

using testing::IsEmpty;

namespace fs = std::filesystem;

const fs::path kProject = HDLBUILDFILE_SOURCE_DIR;

using TNames = std::set<std::string>;

TNames FoldersWithoutReadme() {
    TNames folders;
    for (const TSource& source : Sources())
        for (fs::path folder = fs::path("src") / source.Name; folder.has_relative_path();) {
            folder = folder.parent_path();
            if (folder.empty()) break;
            if (!fs::exists(kProject / folder / "README.md"))
                folders.insert(folder.generic_string());
        }
    return folders;
}

/// The names of the files below `folder` that end in `ending`, without it; "_posix" and "_windows"
/// go as well: such files are halves of one.
TNames NamesIn(const char* folder, const std::string& ending) {
    static const std::regex half("_(posix|windows)$");
    TNames names;
    for (const auto& entry : fs::recursive_directory_iterator(kProject / folder)) {
        const std::string name = entry.path().filename().string();
        if (name.ends_with(ending))
            names.insert(std::regex_replace(name.substr(0, name.size() - ending.size()), half, ""));
    }
    return names;
}

/// The text that a pattern's first group matches; "" when it does not match.
std::string Find(const std::string& text, const char* pattern) {
    std::smatch match;
    return std::regex_search(text, match, std::regex(pattern)) ? match[1].str() : "";
}

}  // namespace

TEST(House, HasAReadmeInEveryFolderOfSources) {
    EXPECT_THAT(FoldersWithoutReadme(), IsEmpty());
}

TEST(House, HasATestOfTheNameOfFourSourcesInFive) {
    const TNames tests = NamesIn("tests", "_test.cpp");
    const TNames sources = NamesIn("src", ".cpp");
    ASSERT_GT(sources.size(), 100u);
    TNames without;
    for (const std::string& name : sources)
        if (!tests.contains(name)) without.insert(name);
    const std::size_t percent = 100 * (sources.size() - without.size()) / sources.size();
    RecordProperty("percent", std::to_string(percent));
    EXPECT_GE(percent, 80u) << "sources without a test: " << testing::PrintToString(without);
}

TEST(House, TellsOneVersionEverywhere) {
    const std::string version =
        Find(ReadProjectFile("CMakeLists.txt"), R"(VERSION (\d+\.\d+\.\d+) DESCRIPTION)");
    ASSERT_NE(version, "");
    EXPECT_EQ(Find(ReadProjectFile("vcpkg.json"), R"x("version-semver": "([^"]*)")x"), version);
}

TEST(House, TellsOneSonameEverywhere) {
    const std::string abi =
        Find(ReadProjectFile("CMakeLists.txt"), R"(set\(HDLBUILDFILE_ABI (\d+)\))");
    ASSERT_NE(abi, "");
    EXPECT_EQ(
        Find(ReadProjectFile("docs/binary-interface.md"), R"(`libhdlbuildfile\.so\.([0-9.]+)`)"),
        abi);
    EXPECT_EQ(Find(ReadProjectFile("packaging/debian/control"), R"(Package: libhdlbuildfile(\d+))"),
              abi);
    EXPECT_EQ(Find(ReadProjectFile("scripts/debian-files"), R"x("libhdlbuildfile(\d+)")x"), abi);
}
