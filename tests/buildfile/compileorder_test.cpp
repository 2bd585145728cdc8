#include "buildfile/compileorder.h"
#include "buildfile/hdlbuildfile.h"
#include "tests/buildfile/filledbuild.h"
#include "tests/support/memoryfolder.h"
#include "tests/support/recorders.h"
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <set>
#include <sstream>

namespace {

/// A build over files that are named without directory and extension: "x" is /p/x.vhd.
class Graph {
public:
    /// `listed` names the group's files; each of `edges` is "file:dependency".
    Graph(const std::string& listed, const std::string& edges) {
        std::istringstream words(edges);
        for (std::string word; words >> word;) {
            const auto colon = word.find(':');
            File(word.substr(0, colon))->AddDependency(File(word.substr(colon + 1)));
        }
        words = std::istringstream(listed);
        for (std::string word; words >> word;) Build.AddSourceFile(File(word), false);
    }
    THdlSourceFile* File(const std::string& name) {
        THdlSourceFile*& file = Files[name];
        if (!file) file = Made.Make("/p/" + name + ".vhd");
        return file;
    }
    std::string Order() {
        Build.OrderFilesForCompile(LANGUAGE_VHDL);
        return Listed();
    }
    std::string Listed() const {
        std::string names;
        for (const IHdlSourceFile* file : *Build.GetFilesToCompile(LANGUAGE_VHDL)) {
            const std::string name = NameOf(file);
            names += name.substr(0, name.find('.')) + " ";
        }
        return names;
    }
    THdlBuildFile Build;
    Sources Made;

private:
    std::map<std::string, THdlSourceFile*> Files;
};

/// The same with a group that was read from a file.
class ReadGraph {
public:
    ReadGraph(const std::string& listed, const std::string& edges) {
        std::string group;
        std::istringstream words(listed);
        for (std::string word; words >> word;) {
            // Lists compare names by the spelling that was met first.
            (void)Handle(Folder.Path(word + ".VHD"));
            group += "<SourceFile>" + word + ".vhd</SourceFile>";
        }
        const RecordingMessageBox box;
        Build.SetBuildFileName(Handle(Folder.Write(
            "build.xml", "<SourceFileGroup Language='VHDL'>" + group + "</SourceFileGroup>")));
        (void)Build.ReadFromFile();
        words = std::istringstream(edges);
        for (std::string word; words >> word;) {
            const auto colon = word.find(':');
            File(word.substr(0, colon))->AddDependency(File(word.substr(colon + 1)));
        }
    }
    IHdlSourceFile* File(const std::string& name) {
        const ISFileName* path = Handle(Folder.Path(name + ".vhd"));
        if (IHdlSourceFile* listed = Build.GetSourceFileGroup(LANGUAGE_VHDL)->GetSourceFile(path))
            return listed;
        IHdlSourceFile*& other = Others[name];
        if (!other) other = Build.CreateOrGetSourceFile((name + ".vhd").c_str());
        return other;
    }
    std::string Order() {
        Build.OrderFilesForCompile(LANGUAGE_VHDL);
        std::string names;
        for (const IHdlSourceFile* file : *Build.GetFilesToCompile(LANGUAGE_VHDL)) {
            const std::string name = NameOf(file);
            names += name.substr(0, name.find('.')) + " ";
        }
        return names;
    }
    MemoryFolder Folder;
    THdlBuildFile Build;
    Sources Made;

private:
    std::map<std::string, IHdlSourceFile*> Others;
};

TEST(CompileOrder, PutsEveryFileBehindWhatItDependsOn) {
    const struct {
        const char* Label;
        const char* Files;
        const char* Edges;
        const char* Expected;
    } rows[] = {
        {"nothing listed", "", "", ""},
        {"independent files keep their order", "c a b", "", "c a b "},
        {"a chain listed backwards", "top mid base", "top:mid mid:base", "base mid top "},
        {"two files with a common dependency", "a b c", "a:c b:c", "c a b "},
        {"a dependency outside the group", "a b", "a:x", "x a b "},
        {"a dependency of one outside the group", "a", "a:x x:y", "y x a "},
        {"dependencies in their own order", "a b c d", "a:d a:b a:c", "d b c a "},
        {"a diamond", "t", "t:l t:r l:b r:b", "b l r t "},
        {"a file that depends on itself", "a b", "a:a a:b", "b a "},
        {"two files that depend on each other", "a b", "a:b b:a", "b a "},
        {"a cycle, entered at z", "z", "z:x x:y y:z", "y x z "},
        {"a cycle, entered at x", "x y z", "z:x x:y y:z", "z y x "},
        {"a cycle behind a file", "t", "t:a a:b b:a b:c", "c b a t "},
        {"two cycles with a common file", "a", "a:b b:a a:c c:a", "b c a "},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Graph(row.Files, row.Edges).Order(), row.Expected) << row.Label;
        EXPECT_EQ(ReadGraph(row.Files, row.Edges).Order(), row.Expected) << row.Label;
    }
}

TEST(CompileOrder, TakesExcludedAndLibrarySourcesLikeOthers) {
    Graph graph("top excluded library", "top:excluded excluded:library library:outside");
    graph.File("top")->SetExcludeFromBuild(true);
    graph.File("excluded")->SetExcludeFromBuild(true);
    graph.File("library")->SetLibraryFlag(true);
    graph.File("outside")->SetLibraryFlag(true);
    graph.File("outside")->SetExcludeFromBuild(true);
    EXPECT_EQ(graph.Order(), "outside library excluded top ");
}

TEST(CompileOrder, LeavesGroupAndListedFlagsAlone) {
    Graph graph("top mid base", "top:mid mid:base base:outside");
    graph.File("mid")->SetIsListedForCompile(true);
    EXPECT_EQ(graph.Order(), "outside base mid top ");
    EXPECT_EQ(NamesOf(*graph.Build.GetSourceFileGroup(LANGUAGE_VHDL)), "top.vhd mid.vhd base.vhd ");
    EXPECT_EQ(NamesOf(*graph.File("top")->GetDependencyList()), "mid.vhd ");
    for (const char* name : {"top", "mid", "base", "outside"})
        EXPECT_EQ(graph.File(name)->GetIsListedForCompile(), std::string(name) == "mid") << name;
}

TEST(CompileOrder, IsTheGroupItselfForOtherLanguages) {
    THdlBuildFile build;
    THdlSourceFile b("/p/b.v");
    THdlSourceFile a("/p/a.v");
    b.AddDependency(&a);
    build.AddSourceFile(&b, false);
    build.AddSourceFile(&a, false);
    build.OrderFilesForCompile(LANGUAGE_VERILOG);
    EXPECT_EQ(build.GetFilesToCompile(LANGUAGE_VERILOG),
              build.GetSourceFileGroup(LANGUAGE_VERILOG));
    EXPECT_EQ(NamesOf(*build.GetFilesToCompile(LANGUAGE_VERILOG)), "b.v a.v ");
    EXPECT_EQ(NamesOf(*build.GetFilesToCompile(LANGUAGE_SYSTEMC)), "");
    EXPECT_EQ(NamesOf(*build.GetFilesToCompile(LANGUAGE_VHDL)), "");
}

TEST(CompileOrder, StaysAsItIsForOtherLanguages) {
    Graph graph("a b", "a:b");
    graph.Order();
    graph.Build.AddSourceFile(graph.File("c"), false);
    for (int i = LANGUAGE_VERILOG; i <= LANGUAGE_NONE; ++i)
        if (i != LANGUAGE_VHDL) graph.Build.OrderFilesForCompile(static_cast<THdlLanguage>(i));
    EXPECT_EQ(graph.Listed(), "b a ");
}

TEST(CompileOrder, FollowsEditsOnlyWhenMadeAgain) {
    Graph graph("a b", "a:b");
    EXPECT_EQ(graph.Listed(), "");
    const TIHdlSourceFileList* list = graph.Build.GetFilesToCompile(LANGUAGE_VHDL);
    EXPECT_EQ(graph.Order(), "b a ");
    graph.Build.AddSourceFile(graph.File("c"), false);
    graph.Build.GetSourceFileGroup(LANGUAGE_VHDL)->RemoveSourceFile(graph.File("b"));
    graph.File("a")->FlushDependencies();
    EXPECT_EQ(graph.Listed(), "b a ");
    EXPECT_EQ(graph.Order(), "a c ");
    EXPECT_EQ(graph.Build.GetFilesToCompile(LANGUAGE_VHDL), list);
}

TEST(CompileOrder, TakesBareNamesForTheListedSourcesThatTheyName) {
    Graph graph("top pkg base", "pkg:base");
    THdlSourceFile* stub = graph.Made.Make("/p/PKG.vhd");
    graph.File("top")->AddDependency(stub);
    EXPECT_EQ(graph.Order(), "base PKG top ");
    EXPECT_EQ(graph.Build.GetFilesToCompile(LANGUAGE_VHDL)->GetSourceFile(Handle("/p/pkg.vhd")),
              stub);
}

TEST(CompileOrder, VisitsABareNamesOwnDependenciesFirst) {
    Graph graph("top pkg", "pkg:base");
    THdlSourceFile* stub = graph.Made.Make("/p/pkg.vhd");
    stub->AddDependency(graph.File("own"));
    graph.File("top")->AddDependency(stub);
    EXPECT_EQ(graph.Order(), "own base pkg top ");
}

TEST(CompileOrder, ListsTheFirstOfTwoObjectsOfANameOutsideTheGroup) {
    Graph graph("a b", "a:x");
    THdlSourceFile* other = graph.Made.Make("/p/X.vhd");
    graph.File("b")->AddDependency(other);
    other->AddDependency(graph.File("y"));
    EXPECT_EQ(graph.Order(), "x a y b ");
}

TEST(CompileOrder, EndsForACycleThroughABareName) {
    Graph graph("a b", "b:a");
    graph.File("a")->AddDependency(graph.Made.Make("/p/b.vhd"));
    EXPECT_EQ(graph.Order(), "b a ");
}

/// A source without a dependency list.
class SourceWithoutList : public THdlSourceFile {
public:
    using THdlSourceFile::THdlSourceFile;
    TIHdlSourceFileList* GetDependencyList() override { return nullptr; }
    const TIHdlSourceFileList* GetDependencyList() const override { return nullptr; }
};

TEST(CompileOrder, TakesAMissingDependencyListForAnEmptyOneAndListsNamelessSources) {
    Graph graph("a", "");
    SourceWithoutList source("/p/s.vhd");
    graph.File("a")->AddDependency(&source);
    THdlSourceFile* nameless = graph.Made.MakeNameless();
    graph.File("a")->AddDependency(nameless);
    nameless->AddDependency(graph.File("b"));
    EXPECT_EQ(graph.Order(), "s b <nameless> a ");
}

TEST(CompileOrder, ReachesTheEndOfALongChain) {
    THdlBuildFile build;
    Sources made;
    constexpr int kLength = 1000000;
    THdlSourceFile* above = made.Make("/p/f0.vhd");
    build.AddSourceFile(above, false);
    for (int i = 1; i < kLength; ++i) {
        THdlSourceFile* file = made.Make("/p/f" + std::to_string(i) + ".vhd");
        above->AddDependency(file);
        above = file;
    }
    build.OrderFilesForCompile(LANGUAGE_VHDL);
    int expected = kLength;
    for (const IHdlSourceFile* file : *build.GetFilesToCompile(LANGUAGE_VHDL))
        ASSERT_EQ(NameOf(file), "f" + std::to_string(--expected) + ".vhd");
    EXPECT_EQ(expected, 0);
}

TEST(CompileOrder, OfSourcesThatWereReadTakesBareNamesForThem) {
    ReadGraph graph("top pkg base", "pkg:base");
    THdlSourceFile* stub = graph.Made.Make(graph.Folder.Path("PKG.vhd"));
    graph.File("top")->AddDependency(stub);
    EXPECT_EQ(graph.Order(), "base PKG top ");
    EXPECT_EQ(graph.Order(), "base PKG top ") << "again";
    graph.File("top")->RemoveDependency(stub);
    EXPECT_EQ(graph.Order(), "top base pkg ");
}

TEST(CompileOrder, OfSourcesThatWereReadListsTheFirstOfTwoObjectsOfANameOutsideTheGroup) {
    ReadGraph graph("a b", "a:x");
    THdlSourceFile* other = graph.Made.Make(graph.Folder.Path("X.vhd"));
    graph.File("b")->AddDependency(other);
    other->AddDependency(graph.File("y"));
    EXPECT_EQ(graph.Order(), "x a y b ");
}

TEST(CompileOrder, FindsEverySourceThatWasReadByItsName) {
    std::string listed;
    for (int i = 0; i < 20; ++i) listed += "f" + std::to_string(i) + " ";
    for (const std::string& some : {std::string("f0 f1 f2 "), listed}) {
        ReadGraph graph(some, "f0:f2");
        graph.Order();
        const TIHdlSourceFileList& ordered = *graph.Build.GetFilesToCompile(LANGUAGE_VHDL);
        EXPECT_EQ(NamesOf(ordered).substr(0, 21), "f2.vhd f0.vhd f1.vhd ");
        for (const IHdlSourceFile* source : ordered) {
            std::string name = source->GetFileName()->Canonical(false);
            name.replace(name.size() - 3, 3, "VHD");
            EXPECT_EQ(ordered.GetSourceFile(Handle(name)), source) << name;
        }
        EXPECT_EQ(ordered.GetSourceFile(Handle(graph.Folder.Path("g.vhd"))), nullptr);
        TIHdlSourceFileList copy(ordered);
        EXPECT_FALSE(copy.AddSourceFile(graph.File("f2"), false));
        EXPECT_TRUE(copy.RemoveSourceFile(graph.File("f2")));
        EXPECT_TRUE(copy.AddSourceFile(graph.File("f2"), false));
        EXPECT_EQ(copy.size(), ordered.size());
    }
}

TEST(CompileOrder, SeesThatASourceThatWasReadWasGivenAnotherName) {
    ReadGraph graph("a b c", "a:c");
    auto* b = dynamic_cast<THdlSourceFile*>(graph.File("b"));
    *b = THdlSourceFile(graph.File("c")->GetFileName());
    EXPECT_EQ(graph.Order(), "c a ") << "the second of two of one name";
}

/// The order that plain recursion gives.
void AddRecursively(IHdlSourceFile* file, std::set<IHdlSourceFile*>* met, std::string* order) {
    if (!met->insert(file).second) return;
    for (IHdlSourceFile* dependency : *file->GetDependencyList())
        AddRecursively(dependency, met, order);
    const std::string name = NameOf(file);
    *order += name.substr(0, name.find('.')) + " ";
}

TEST(CompileOrder, IsThatOfPlainRecursionForRandomGraphs) {
    std::mt19937 random(5);
    for (int round = 0; round < 60; ++round) {
        std::string listed;
        std::string edges;
        const auto count = static_cast<int>(2 + random() % 30);
        const int outside = round % 2 == 0 ? 0 : 4;
        const auto name = [&] {
            return "n" + std::to_string(static_cast<int>(random() % 64) % (count + outside));
        };
        for (int i = 0; i < count; ++i) listed += "n" + std::to_string(i) + " ";
        for (int i = 0; i < 3 * count; ++i) edges += name() + ":" + name() + " ";
        ReadGraph graph(listed, edges);
        std::set<IHdlSourceFile*> met;
        std::string expected;
        for (IHdlSourceFile* source : *graph.Build.GetSourceFileGroup(LANGUAGE_VHDL))
            AddRecursively(source, &met, &expected);
        ASSERT_EQ(graph.Order(), expected) << edges;
        ASSERT_EQ(Graph(listed, edges).Order(), expected) << edges;
    }
}

TEST(CompileOrder, VisitsTheFilesOfManyLayersOnceEach) {
    std::string edges;
    std::string expected;
    for (int layer = 0; layer < 40; ++layer) {
        const auto name = [](char side, int level) { return side + std::to_string(level); };
        for (const char from : {'l', 'r'})
            for (const char to : {'l', 'r'})
                edges += name(from, layer) + ":" + name(to, layer + 1) + " ";
    }
    for (int layer = 40; layer > 0; --layer)
        expected += "l" + std::to_string(layer) + " r" + std::to_string(layer) + " ";
    EXPECT_EQ(Graph("l0", edges).Order(), expected + "l0 ");
}

}  // namespace
