#include "buildfile/hdlbuildfile.h"
#include "projectfiles/hdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/names/isfilename.h"
#include "tests/flows/graph/graphlines.h"
#include "tests/support/growth.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <list>
#include <map>

namespace {

/// The path from the root, as every system writes it here.
std::string NameOf(const ISFileName* file) {
    std::string path = file->Canonical(false);
    std::replace(path.begin(), path.end(), '\\', '/');
    return path.substr(path.find('/') + 1);
}

/// A build of VHDL sources by the words "path" or "library:path", and "a>b": a depends on b, which
/// is listed only when it is a word of its own.
class SampleBuild {
public:
    explicit SampleBuild(const std::string& text) {
        std::istringstream words(text);
        for (std::string word; words >> word;) {
            if (const std::size_t arrow = word.find('>'); arrow != std::string::npos) {
                File(word.substr(0, arrow))->AddDependency(File(word.substr(arrow + 1)));
                continue;
            }
            const std::size_t colon = word.find(':');
            THdlSourceFile* const file =
                File(colon == std::string::npos ? word : word.substr(colon + 1));
            if (colon != std::string::npos)
                file->SetPrecompiledLibraryGroupName(word.substr(0, colon).c_str());
            Build.GetSourceFileGroup(LANGUAGE_VHDL)->AddSourceFile(file, false);
        }
    }

    TSourceGraph Graph() const { return MakeSourceGraph(Build, NameOf); }
    std::size_t PlaceOf(const TSourceGraph& graph, const std::string& path) const {
        return FindNode(graph, ISFileName::NewISFileName(("/" + path).c_str()));
    }

private:
    THdlSourceFile* File(const std::string& path) {
        auto& file = Named[path];
        if (!file) file = &Files.emplace_back(("/" + path).c_str());
        return file;
    }

    std::list<THdlSourceFile> Files;
    std::map<std::string, THdlSourceFile*> Named;
    THdlBuildFile Build;
};

}  // namespace

TEST(SourceGraph, HasTheListedFilesAndWhatTheyDependOn) {
    const SampleBuild build(
        "rtl/top.vhd corelib:rtl/core.vhd pkg.vhd rtl/top.vhd>rtl/core.vhd "
        "rtl/top.vhd>pkg.vhd rtl/core.vhd>gone/old.vhd");
    EXPECT_EQ(TextOf(build.Graph()),
              "rtl/top.vhd library=work folder=rtl files=1\n"
              "rtl/core.vhd library=corelib folder=rtl files=1\n"
              "pkg.vhd library=work folder=. files=1\n"
              "gone/old.vhd library=work folder=gone files=1 unlisted\n"
              "rtl/top.vhd > rtl/core.vhd\n"
              "rtl/top.vhd > pkg.vhd\n"
              "rtl/core.vhd > gone/old.vhd\n"
              "cycles=0\n");
}

TEST(SourceGraph, NumbersTheCycles) {
    const SampleBuild build("a b c d e a>b b>a b>c c>d d>c d>e e>e");
    EXPECT_EQ(TextOf(build.Graph()),
              "a library=work folder=. files=1 cycle=0\n"
              "b library=work folder=. files=1 cycle=0\n"
              "c library=work folder=. files=1 cycle=1\n"
              "d library=work folder=. files=1 cycle=1\n"
              "e library=work folder=. files=1 cycle=2\n"
              "a > b cycle\n"
              "b > a cycle\n"
              "b > c\n"
              "c > d cycle\n"
              "d > c cycle\n"
              "d > e\n"
              "e > e cycle\n"
              "cycles=3\n");
}

TEST(SourceGraph, FindsTheNodeOfAFile) {
    const SampleBuild build("a b b>c");
    const TSourceGraph graph = build.Graph();
    EXPECT_EQ(build.PlaceOf(graph, "B"), 1u);
    EXPECT_EQ(build.PlaceOf(graph, "c"), 2u);
    EXPECT_EQ(build.PlaceOf(graph, "d"), kNoPlace);
}

TEST(SourceGraph, AroundAFileGoesBothWays) {
    // a > b > c > d > e, and both a and x need y.
    const SampleBuild build("a b c d e x y a>b b>c c>d d>e a>y x>y");
    const TSourceGraph graph = build.Graph();
    const struct {
        const char* Center;
        std::size_t Depth;
        const char* Names;
    } rows[] = {
        {"c", 0, "c"},         {"c", 1, "b c d"},
        {"c", 2, "a b c d e"}, {"c", 99, "a b c d e"},  // not y: what others need is no part of it
        {"y", 1, "a x y"},
    };
    for (const auto& row : rows) {
        std::string names;
        const TSourceGraph around = GraphAround(graph, build.PlaceOf(graph, row.Center), row.Depth);
        for (const TGraphNode& node : around.Nodes) names += (names.empty() ? "" : " ") + node.Name;
        EXPECT_EQ(names, row.Names) << row.Center << row.Depth;
    }
}

TEST(SourceGraph, AroundAFileKeepsTheCyclesOfTheWholeGraph) {
    const SampleBuild build("a b c d x y a>b b>c c>a c>d x>y y>x");
    const TSourceGraph graph = build.Graph();
    EXPECT_EQ(TextOf(GraphAround(graph, build.PlaceOf(graph, "d"), 1)),
              "c library=work folder=. files=1 cycle=0\n"
              "d library=work folder=. files=1\n"
              "c > d\n"
              "cycles=1\n");
    EXPECT_EQ(GraphAround(graph, build.PlaceOf(graph, "a"), 1).CycleCount, 1u);
    EXPECT_EQ(GraphAround(graph, build.PlaceOf(graph, "d"), 0).CycleCount, 0u);
}

TEST(SourceGraph, OfLibrariesCountsFilesAndDependencies) {
    const SampleBuild build("l:r/a l:s/b m:s/c a:t/d r/a>s/b r/a>s/c s/b>s/c s/c>t/d t/d>s/c");
    EXPECT_EQ(TextOf(GraphOfGroups(build.Graph(), GRAPH_OF_LIBRARIES)),
              "l library=l folder=? files=2\n"
              "m library=m folder=s files=1 cycle=0\n"
              "a library=a folder=t files=1 cycle=0\n"
              "l > m x2\n"
              "m > a cycle\n"
              "a > m cycle\n"
              "cycles=1\n");
}

TEST(SourceGraph, OfFoldersKeepsOneOfFilesThatAreNotListedApart) {
    const SampleBuild build("l:r/a l:s/b m:s/c r/a>s/b r/a>g/x");
    EXPECT_EQ(TextOf(GraphOfGroups(build.Graph(), GRAPH_OF_FOLDERS)),
              "r library=l folder=r files=1\n"
              "s library=? folder=s files=2\n"
              "g library=work folder=g files=1 unlisted\n"
              "r > s\n"
              "r > g\n"
              "cycles=0\n");
}

TEST(SourceGraph, TakesLinearTime) {
    const auto make = [](int size) {
        std::string words;
        for (int i = 0; i < size; ++i) {
            const std::string name = "f" + std::to_string(i % 50) + "/" + std::to_string(i);
            words += name + " ";
            for (int next : {i / 2, i + 1})
                words += name + ">f" + std::to_string(next % 50) + "/" + std::to_string(next) + " ";
        }
        return words;
    };
    const std::map<int, SampleBuild> builds = [&] {
        std::map<int, SampleBuild> made;
        for (int size : {1000, 4000}) made.try_emplace(size, make(size));
        return made;
    }();
    EXPECT_LT(GrowthOf(
                  [&](int size) {
                      const TSourceGraph graph = builds.at(size).Graph();
                      EXPECT_EQ(GraphAround(graph, 0, 9).Nodes.empty(), false);
                      EXPECT_EQ(GraphOfGroups(graph, GRAPH_OF_FOLDERS).Nodes.size(), 50u);
                  },
                  1000),
              kLargestLinearGrowth);
}
