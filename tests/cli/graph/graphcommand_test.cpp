#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

const std::string kHead =
    "    graph [rankdir=LR];\n"
    "    node [shape=box, style=\"filled,rounded\", color=\"#5b6673\", fontsize=11, "
    "fontname=\"Helvetica,Arial,sans-serif\"];\n"
    "    edge [color=\"#5b6673\", fontsize=9, fontname=\"Helvetica,Arial,sans-serif\"];\n";

/// A folder with the build b.xml: top needs core and pkg, core needs pkg, and mon stands alone.
class GraphCommand : public testing::Test {
protected:
    GraphCommand() {
        for (const char* name : {"rtl/top.vhd", "rtl/core.vhd", "pkg.vhd", "rtl/mon.v"})
            Folder.Write(name, "");
        WriteBuild({"rtl/core.vhd", "pkg.vhd"}, {"pkg.vhd"}, {});
    }
    void WriteBuild(const std::vector<std::string>& ofTop, const std::vector<std::string>& ofCore,
                    const std::vector<std::string>& ofPkg) const {
        Folder.Write(
            "b.xml",
            BuildText("<SourceFileGroup Language=\"VHDL\">\n" + SourceText("rtl/top.vhd", ofTop) +
                      SourceText("rtl/core.vhd", ofCore, "PrecompiledLibrary=\"ip\"") +
                      SourceText("pkg.vhd", ofPkg) +
                      "</SourceFileGroup>\n<SourceFileGroup Language=\"Verilog\">\n" +
                      SourceText("rtl/mon.v") + "</SourceFileGroup>\n"));
    }
    WorkingFolder Folder;
};

}  // namespace

TEST_F(GraphCommand, PrintsTheFilesAsDot) {
    const TToolRun run = RunHdlbuild({"graph", "b.xml"});
    EXPECT_EQ(run.Status, kExitDone);
    EXPECT_EQ(run.Err, "");
    EXPECT_EQ(run.Out, "digraph \"b.xml\" {\n" + kHead +
                           "    n0 [label=\"rtl/mon.v\\nwork\", fillcolor=\"#cfe3fb\"];\n"
                           "    n1 [label=\"rtl/top.vhd\\nwork\", fillcolor=\"#cfe3fb\"];\n"
                           "    n2 [label=\"rtl/core.vhd\\nip\", fillcolor=\"#ffe2b3\"];\n"
                           "    n3 [label=\"pkg.vhd\\nwork\", fillcolor=\"#cfe3fb\"];\n"
                           "    n1 -> n2;\n"
                           "    n1 -> n3;\n"
                           "    n2 -> n3;\n"
                           "}\n");
    EXPECT_EQ(RunHdlbuild({"graph", "b.xml", "-o", "-", "--format", "dot"}).Out, run.Out);
}

TEST_F(GraphCommand, SavesTheFormatOfTheOutputsName) {
    const std::string printed = RunHdlbuild({"graph", "b.xml"}).Out;
    EXPECT_EQ(ResultOf({"graph", "b.xml", "-o", "g.dot"}), "");
    EXPECT_EQ(Folder.Read("g.dot"), printed);
    EXPECT_EQ(ResultOf({"graph", "b.xml", "-o", "g.txt", "--format", "dot"}), "");
    EXPECT_EQ(Folder.Read("g.txt"), printed);
}

TEST_F(GraphCommand, PutsFilesTogether) {
    EXPECT_EQ(ResultOf({"graph", "b.xml", "--by", "library"}),
              "digraph \"b.xml\" {\n" + kHead +
                  "    n0 [label=\"work\\n3 files\", fillcolor=\"#cfe3fb\", color=\"#c62828\", "
                  "penwidth=2];\n"
                  "    n1 [label=\"ip\\n1 file\", fillcolor=\"#ffe2b3\", color=\"#c62828\", "
                  "penwidth=2];\n"
                  "    n0 -> n1 [color=\"#c62828\", penwidth=2];\n"
                  "    n1 -> n0 [color=\"#c62828\", penwidth=2];\n"
                  "}\n");
    EXPECT_EQ(ResultOf({"graph", "b.xml", "--by", "folder"}),
              "digraph \"b.xml\" {\n" + kHead +
                  "    n0 [label=\"rtl\\n3 files\", fillcolor=\"#ffffff\"];\n"
                  "    n1 [label=\".\\n1 file\", fillcolor=\"#cfe3fb\"];\n"
                  "    n0 -> n1 [label=\"2\"];\n"
                  "}\n");
}

TEST_F(GraphCommand, KeepsWhatIsAroundAFile) {
    WriteBuild({"rtl/core.vhd"}, {"pkg.vhd"}, {});
    EXPECT_EQ(ResultOf({"graph", "b.xml", "--around", "pkg.vhd"}),
              "digraph \"b.xml\" {\n" + kHead +
                  "    n0 [label=\"rtl/core.vhd\\nip\", fillcolor=\"#ffe2b3\"];\n"
                  "    n1 [label=\"pkg.vhd\\nwork\", fillcolor=\"#cfe3fb\"];\n"
                  "    n0 -> n1;\n"
                  "}\n");
    EXPECT_EQ(
        ResultOf({"graph", "b.xml", "--around", "./PKG.vhd", "--depth", "2", "--by", "library"}),
        ResultOf({"graph", "b.xml", "--by", "library", "--around", "rtl/top.vhd", "--depth", "7"}));
}

TEST_F(GraphCommand, PrintsOneJsonObject) {
    WriteBuild({"rtl/core.vhd"}, {"rtl/top.vhd", "gone.vhd"}, {});
    const TToolRun run = RunHdlbuild({"graph", "b.xml", "--json", "--around", "rtl/top.vhd"});
    EXPECT_EQ(run.Status, kExitProblems);
    EXPECT_EQ(nlohmann::ordered_json::parse(run.Out).dump(),
              "{\"format\":\"hdlbuild-graph\",\"version\":1,\"build\":\"b.xml\",\"output\":null,"
              "\"by\":\"file\",\"nodes\":["
              "{\"name\":\"rtl/top.vhd\",\"library\":\"work\",\"folder\":\"rtl\",\"files\":1,"
              "\"listed\":true,\"cycle\":0},"
              "{\"name\":\"rtl/core.vhd\",\"library\":\"ip\",\"folder\":\"rtl\",\"files\":1,"
              "\"listed\":true,\"cycle\":0}],\"edges\":["
              "{\"from\":0,\"to\":1,\"count\":1},{\"from\":1,\"to\":0,\"count\":1}]}");
    EXPECT_EQ(RunHdlbuild({"graph", "b.xml", "--json", "-o", "g.dot"}).Status, kExitProblems);
    EXPECT_EQ(Folder.Read("g.dot"), RunHdlbuild({"graph", "b.xml"}).Out);
}

TEST_F(GraphCommand, TellsOfCycles) {
    WriteBuild({"rtl/core.vhd"}, {"rtl/top.vhd"}, {"gone.vhd"});
    const TToolRun run = RunHdlbuild({"graph", "b.xml"});
    EXPECT_EQ(run.Status, kExitProblems);
    EXPECT_EQ(run.Out, "digraph \"b.xml\" {\n" + kHead +
                           "    n0 [label=\"rtl/mon.v\\nwork\", fillcolor=\"#cfe3fb\"];\n"
                           "    n1 [label=\"rtl/top.vhd\\nwork\", fillcolor=\"#cfe3fb\", "
                           "color=\"#c62828\", penwidth=2];\n"
                           "    n2 [label=\"rtl/core.vhd\\nip\", fillcolor=\"#ffe2b3\", "
                           "color=\"#c62828\", penwidth=2];\n"
                           "    n3 [label=\"pkg.vhd\\nwork\", fillcolor=\"#cfe3fb\"];\n"
                           "    n4 [label=\"gone.vhd\\nwork\", fillcolor=\"#cfe3fb\", "
                           "style=\"filled,rounded,dashed\"];\n"
                           "    n1 -> n2 [color=\"#c62828\", penwidth=2];\n"
                           "    n2 -> n1 [color=\"#c62828\", penwidth=2];\n"
                           "    n3 -> n4;\n"
                           "}\n");
}

TEST_F(GraphCommand, NamesFilesByAbsolutePathsOnRequest) {
    const std::string text = ResultOf({"graph", "b.xml", "--absolute", "--around", "rtl/mon.v"});
    const auto printed = nlohmann::json::parse(
        RunHdlbuild({"graph", "b.xml", "--absolute", "--around", "rtl/mon.v", "--json"}).Out);
    EXPECT_EQ(printed["nodes"][0]["name"], Folder.Path("rtl/mon.v"));
    EXPECT_NE(text, ResultOf({"graph", "b.xml", "--around", "rtl/mon.v"}));
}

TEST_F(GraphCommand, RefusesWhatItDoesNotKnow) {
    const struct {
        std::vector<std::string> Options;
        const char* Result;
    } rows[] = {
        {{"--by", "unit"},
         "2\nhdlbuild: error: unknown kind of node 'unit'; known: file, library, folder\n"},
        {{"--around", "x.vhd"}, "2\nhdlbuild: error: x.vhd is no source of the build\n"},
        {{"--depth", "2"}, "2\nhdlbuild: error: --depth needs --around\n"},
        {{"--around", "pkg.vhd", "--depth", "2x"},
         "2\nhdlbuild: error: --depth: '2x' is no number\n"},
        {{"--around", "pkg.vhd", "--depth", "-1"},
         "2\nhdlbuild: error: --depth: '-1' is no number\n"},
        {{"-o", "b.xml", "--format", "dot"},
         "2\nhdlbuild: error: b.xml: the output would replace the build file\n"},
        {{"-o", "pkg.vhd", "--format", "dot"},
         "2\nhdlbuild: error: pkg.vhd: the output would replace the source pkg.vhd\n"},
    };
    for (const auto& row : rows) {
        std::vector<std::string> words = {"graph", "b.xml"};
        words.insert(words.end(), row.Options.begin(), row.Options.end());
        EXPECT_EQ(ResultOf(words), row.Result);
    }
    EXPECT_EQ(ResultOf({"graph", "none.xml"}).substr(0, 27), "3\nhdlbuild: error: none.xml");
}
