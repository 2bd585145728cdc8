#include "flows/graph/dotgraph.h"
#include "services/names/isfilename.h"
#include <gtest/gtest.h>

namespace {

const std::string kHead =
    "    graph [rankdir=LR];\n"
    "    node [shape=box, style=\"filled,rounded\", color=\"#5b6673\", fontsize=11, "
    "fontname=\"Helvetica,Arial,sans-serif\"];\n"
    "    edge [color=\"#5b6673\", fontsize=9, fontname=\"Helvetica,Arial,sans-serif\"];\n";

TGraphNode Node(const std::string& name, std::size_t library) {
    TGraphNode node{name, library, 0};
    node.File = ISFileName::NewISFileName("/a.vhd");
    return node;
}

}  // namespace

TEST(DotGraph, ShowsFilesLibrariesAndCycles) {
    TSourceGraph graph{{"work", "ip"}, {"."}, {}, {{0, 1}, {1, 0}, {1, 2}}, 1};
    graph.Nodes = {Node("a.vhd", 0), Node("b.vhd", 1), Node("gone.vhd", 0)};
    graph.Nodes[0].Cycle = graph.Nodes[1].Cycle = 0;
    graph.Nodes[2].IsListed = false;
    EXPECT_EQ(WriteGraphAsDot(graph, "b.xml"),
              "digraph \"b.xml\" {\n" + kHead +
                  "    n0 [label=\"a.vhd\\nwork\", fillcolor=\"#cfe3fb\", color=\"#c62828\", "
                  "penwidth=2];\n"
                  "    n1 [label=\"b.vhd\\nip\", fillcolor=\"#ffe2b3\", color=\"#c62828\", "
                  "penwidth=2];\n"
                  "    n2 [label=\"gone.vhd\\nwork\", fillcolor=\"#cfe3fb\", "
                  "style=\"filled,rounded,dashed\"];\n"
                  "    n0 -> n1 [color=\"#c62828\", penwidth=2];\n"
                  "    n1 -> n0 [color=\"#c62828\", penwidth=2];\n"
                  "    n1 -> n2;\n"
                  "}\n");
}

TEST(DotGraph, ShowsGroupsWithTheirNumbers) {
    TSourceGraph graph{{"work", "ip"}, {"r", "s"}, {}, {{0, 1, 1}, {1, 0, 3}}, 1};
    graph.Nodes = {{"r", kNoPlace, 0, 12}, {"s", 1, 1, 1}};
    graph.Nodes[0].Cycle = graph.Nodes[1].Cycle = 0;
    EXPECT_EQ(WriteGraphAsDot(graph, "b.xml"),
              "digraph \"b.xml\" {\n" + kHead +
                  "    n0 [label=\"r\\n12 files\", fillcolor=\"#ffffff\", color=\"#c62828\", "
                  "penwidth=2];\n"
                  "    n1 [label=\"s\\n1 file\", fillcolor=\"#ffe2b3\", color=\"#c62828\", "
                  "penwidth=2];\n"
                  "    n0 -> n1 [color=\"#c62828\", penwidth=2];\n"
                  "    n1 -> n0 [label=\"3\", color=\"#c62828\", penwidth=2];\n"
                  "}\n");
}

TEST(DotGraph, QuotesNames) {
    TSourceGraph graph{{"w"}, {"."}, {Node("\\n\"</script>&\xFC", 0)}, {}};
    EXPECT_EQ(WriteGraphAsDot(graph, "\"b\".xml"),
              "digraph \"\\\"b\\\".xml\" {\n" + kHead +
                  "    n0 [label=\"\\\\n\\\"</script>&amp;\uFFFD\", fillcolor=\"#cfe3fb\"];\n"
                  "}\n");
}

TEST(DotGraph, ShowsNothingOfAnEmptyBuild) {
    EXPECT_EQ(WriteGraphAsDot({}, ""), "digraph \"\" {\n" + kHead + "}\n");
}
