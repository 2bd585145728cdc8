#include "tests/cli/scan/vhdldesign.h"
#include "tests/cli/shell.h"
#include "tests/cli/toolrun.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <random>

namespace {

/// What GHDL says of the sources in this order, "library\tpath" on each line; "" when it takes all.
std::string Analyse(const std::string& order) {
    std::istringstream lines(order);
    std::string library, path, refusals;
    std::filesystem::remove_all("work");
    std::filesystem::create_directory("work");
    while (std::getline(lines, library, '\t') && std::getline(lines, path)) {
        const auto [status, output] =
            Shell("ghdl -a --std=08 --workdir=work -Pwork --work=" + library + " '" + path + "'");
        if (status != 0) refusals += output;
    }
    return refusals;
}

/// Writes the design and a build that lists it in an order that `seed` gives; that order.
std::string WriteShuffled(const WorkingFolder& folder, unsigned seed) {
    std::vector<TDesignSource> design = MakeVhdlDesign();
    std::shuffle(design.begin(), design.end(), std::mt19937(seed));
    std::string listed, order;
    for (const TDesignSource& source : design) {
        folder.Write(source.Path, source.Text);
        listed += SourceText(source.Path, {}, "PrecompiledLibrary=\"" + source.Library + "\"");
        order += source.Library + "\t" + source.Path + "\n";
    }
    folder.Write("b.xml", BuildText("<SourceFileGroup Language=\"VHDL\">\n" + listed +
                                    "</SourceFileGroup>\n"));
    return order;
}

}  // namespace

TEST(ScannedOrder, HoldsSixtyFilesInFourLibraries) {
    std::set<std::string> libraries, paths;
    for (const TDesignSource& source : MakeVhdlDesign()) {
        libraries.insert(source.Library);
        paths.insert(source.Path);
    }
    EXPECT_EQ(libraries, (std::set<std::string>{"base", "bus_lib", "core", "tests"}));
    EXPECT_GE(paths.size(), 60u);
    EXPECT_EQ(paths.size(), MakeVhdlDesign().size());
}

TEST(ScannedOrder, CompilesUnderGhdlHoweverTheFilesAreListed) {
    if (!IsInstalled("ghdl")) GTEST_SKIP() << "ghdl is not installed";
    for (const unsigned seed : {1u, 2u}) {
        const WorkingFolder folder;
        const std::string listed = WriteShuffled(folder, seed);
        EXPECT_EQ(RunHdlbuild({"scan", "b.xml"}).Status, kExitDone);
        EXPECT_EQ(RunHdlbuild({"scan", "b.xml", "--check", "--exact"}).Status, kExitDone);
        const std::string order = RunHdlbuild({"order", "b.xml", "--tsv"}).Out;
        EXPECT_EQ(std::count(order.begin(), order.end(), '\n'),
                  std::count(listed.begin(), listed.end(), '\n'));
        EXPECT_EQ(Analyse(order), "") << "seed " << seed;
    }
}

TEST(ScannedOrder, IsNeededByTheDesign) {
    if (!IsInstalled("ghdl")) GTEST_SKIP() << "ghdl is not installed";
    const WorkingFolder folder;
    EXPECT_NE(Analyse(WriteShuffled(folder, 1)), "");
}

// The library IEEE of VHDL-2008 as Debian ships it with GHDL, in sources.
TEST(ScannedOrder, CompilesTheSourcesOfAStandardLibrary) {
    const std::filesystem::path sources = "/usr/lib/ghdl/src/ieee2008";
    if (!IsInstalled("ghdl") || !std::filesystem::exists(sources))
        GTEST_SKIP() << "ghdl is not installed with its sources";
    std::vector<std::string> paths;
    for (const auto& entry : std::filesystem::directory_iterator(sources))
        paths.push_back(entry.path().string());
    std::sort(paths.begin(), paths.end());
    std::shuffle(paths.begin(), paths.end(), std::mt19937(1));
    const WorkingFolder folder;
    std::string listed, order;
    for (const std::string& path : paths) {
        listed += SourceText(path, {}, "PrecompiledLibrary=\"ieee\"");
        order += "ieee\t" + path + "\n";
    }
    folder.Write("b.xml", BuildText("<SourceFileGroup Language=\"VHDL\">\n" + listed +
                                    "</SourceFileGroup>\n"));
    EXPECT_NE(Analyse(order), "");
    EXPECT_EQ(RunHdlbuild({"scan", "b.xml"}).Status, kExitDone);
    EXPECT_EQ(Analyse(RunHdlbuild({"order", "b.xml", "--tsv", "--absolute"}).Out), "");
}
