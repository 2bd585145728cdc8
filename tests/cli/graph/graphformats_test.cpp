#include "flows/graph/htmlgraph.h"
#include "tests/cli/toolrun.h"
#include <cstdlib>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

/// A folder with the build b.xml, in which a needs b.
class GraphFormats : public testing::Test {
protected:
    GraphFormats() {
        Folder.Write("a.vhd", "");
        Folder.Write("b.vhd", "");
        Folder.Write("b.xml", BuildText("<SourceFileGroup Language=\"VHDL\">\n" +
                                        SourceText("a.vhd", {"b.vhd"}) + SourceText("b.vhd") +
                                        "</SourceFileGroup>\n"));
    }
    WorkingFolder Folder;
};

}  // namespace

TEST_F(GraphFormats, FollowFromTheOutputsName) {
    EXPECT_EQ(ResultOf({"graph", "b.xml", "-o", "g.pdf"}),
              "2\nhdlbuild: error: g.pdf: the name tells no format; give --format dot, svg or "
              "html\n");
    EXPECT_EQ(ResultOf({"graph", "b.xml", "--format", "gml"}),
              "2\nhdlbuild: error: unknown format 'gml'; known: dot, svg, html\n");
    EXPECT_EQ(Folder.List(), "a.vhd\nb.vhd\nb.xml\n");
}

TEST_F(GraphFormats, HtmlHoldsThePageWithTheGraph) {
    const std::string result = ResultOf({"graph", "b.xml", "-o", "g.html"});
    if (GetGraphPage().empty()) {
        EXPECT_EQ(result,
                  "3\nhdlbuild: error: this hdlbuild was built without the page for graphs, which "
                  "takes the npm registry: draw dot or svg\n");
        EXPECT_FALSE(Folder.Exists("g.html"));
        return;
    }
    EXPECT_EQ(result, "");
    const std::string html = Folder.Read("g.html");
    const std::string begin = "<script type=\"application/json\" id=\"data\">";
    const std::size_t data = html.find(begin) + begin.size();
    EXPECT_EQ(nlohmann::json::parse(html.substr(data, html.find("</script>", data) - data)).dump(),
              "{\"by\":\"file\",\"edges\":[0,1,1],\"folders\":[\".\"],\"libraries\":[\"work\"],"
              "\"nodes\":[[\"a.vhd\",0,0,1,1,-1],[\"b.vhd\",0,0,1,1,-1]],\"title\":\"b.xml\"}");
    EXPECT_EQ(ResultOf({"graph", "b.xml", "--format", "html"}), html);
}

#ifndef _WIN32
TEST_F(GraphFormats, SvgComesFromGraphviz) {
    const std::string former = std::getenv("PATH");
    const TemporaryFolder programs;
    setenv("PATH", programs.Path().c_str(), 1);
    EXPECT_EQ(ResultOf({"graph", "b.xml", "-o", "g.svg"}),
              "3\nhdlbuild: error: SVG needs the program 'dot' of Graphviz: install the package "
              "graphviz\n");
    EXPECT_FALSE(Folder.Exists("g.svg"));
    std::filesystem::permissions(
        programs.Write("dot", "#!/bin/sh\nwhile read -r line; do echo \"<$line>\"; done"),
        std::filesystem::perms::owner_all);
    EXPECT_EQ(ResultOf({"graph", "b.xml", "-o", "g.svg", "--by", "library"}), "");
    EXPECT_EQ(Folder.Read("g.svg").substr(0, 19), "<digraph \"b.xml\" {>");
    setenv("PATH", former.c_str(), 1);
}
#endif
