#include "cli/builtwith.h"
#include "tests/cli/shell.h"
#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

// The versions are those of Debian's packages and of the compiler, as these tell them.

namespace {

/// The first line that a command prints; "" when it fails.
std::string LineOf(const std::string& command) {
    const auto [status, text] = Shell(command);
    return status == 0 ? text.substr(0, text.find('\n')) : "";
}

/// The version of a package without what Debian puts behind: "2021.8.0-2+deb12u1" is 2021.8.0.
std::string PackagedVersion(const std::string& package) {
    const std::string version = LineOf("dpkg-query -W -f '${Version}\\n' " + package);
    return version.substr(0, version.find_first_of("+-~"));
}

/// The version that a package of npm tells of itself.
std::string VersionInArchive(const TBuiltWith& row) {
    return LineOf("tar -xOzf " HDLBUILDFILE_NPM_FOLDER "/" + row.Name + "-" + row.Version +
                  ".tgz package/package.json | sed -n 's/^  \"version\": \"\\(.*\\)\".*/\\1/p'");
}

}  // namespace

TEST(BuiltWith, TellsTheVersionsOfPackagesAndCompiler) {
    const WorkingFolder folder;
    if (!IsInstalled("dpkg-query")) GTEST_SKIP() << "no packages of Debian";
    const std::vector<std::pair<std::string, std::string>> expected = {
        {HDLBUILDFILE_COMPILER_NAME, LineOf(HDLBUILDFILE_COMPILER_VERSION_COMMAND)},
        {"TBB", PackagedVersion("libtbb-dev")},
        {"Expat", PackagedVersion("libexpat1-dev")},
        {"SimpleIni", PackagedVersion("libsimpleini-dev")},
        {"CLI11", PackagedVersion("libcli11-dev")},
        {"nlohmann-json", PackagedVersion("nlohmann-json3-dev")},
        {"yaml-cpp", PackagedVersion("libyaml-cpp-dev")},
        {"toml++", PackagedVersion("libtomlplusplus-dev")},
    };
    std::vector<std::pair<std::string, std::string>> found;
    for (const TBuiltWith& row : GetBuiltWith())
        if (row.Purpose != "the page of graphs") found.emplace_back(row.Name, row.Version);
    EXPECT_EQ(found, expected);
}

TEST(BuiltWith, TellsTheLibrariesOfThePageWhereItHasThem) {
    const WorkingFolder folder;
    folder.Write("b.xml", BuildText(""));
    std::string names;
    for (const TBuiltWith& row : GetBuiltWith()) {
        if (row.Purpose != "the page of graphs") continue;
        names += row.Name + "\n";
        EXPECT_EQ(row.Version, VersionInArchive(row)) << row.Name;
    }
    const bool hasPage = RunHdlbuild({"graph", "b.xml", "-o", "g.html"}).Status == kExitDone;
    EXPECT_EQ(names, hasPage ? "graphology\nsigma\n" : "");
}

TEST(BuiltWith, IsWhatTheToolPrints) {
    std::string text = "hdlbuild " HDLBUILDFILE_VERSION "\n";
    const auto line = [&text](std::string name, std::string version, const std::string& purpose) {
        name.resize(15, ' ');
        version.resize(10, ' ');
        text += name + version + purpose + "\n";
    };
    line("built with", "version", "for");
    for (const TBuiltWith& row : GetBuiltWith()) line(row.Name, row.Version, row.Purpose);
    EXPECT_EQ(ResultOf({"--version", "--verbose"}), text);
}
