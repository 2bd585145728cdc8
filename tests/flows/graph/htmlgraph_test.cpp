#include "flows/graph/htmlgraph.h"
#include <gtest/gtest.h>

namespace {

constexpr const char* kPage = "<title>{{title}}</title><h1>{{title}}</h1>{{other}}<p>{{data}}</p>";

}  // namespace

TEST(HtmlGraph, FillsThePageWithTitleAndData) {
    TSourceGraph graph{{"work", "ip"}, {".", "rtl"}, {}, {{0, 1}, {1, 0}, {1, 2, 3}}, 1};
    graph.Nodes = {
        {"a.vhd", 0, 0, 1, true, 0}, {"rtl/b.vhd", 1, 1, 1, true, 0}, {"x", 0, 0, 1, false}};
    EXPECT_EQ(WriteGraphAsHtml(graph, GRAPH_OF_FILES, "b&<.xml", kPage),
              "<title>b&amp;&lt;.xml</title><h1>b&amp;&lt;.xml</h1>{{other}}<p>"
              "{\"title\":\"b&\\u003c.xml\",\"by\":\"file\",\"libraries\":[\"work\",\"ip\"],\n"
              "\"folders\":[\".\",\"rtl\"],\n"
              "\"nodes\":[\n"
              "[\"a.vhd\",0,0,1,1,0],\n"
              "[\"rtl/b.vhd\",1,1,1,1,0],\n"
              "[\"x\",0,0,1,0,-1]],\n"
              "\"edges\":[0,1,1,1,0,1,1,2,3]}</p>");
}

TEST(HtmlGraph, NamesWhatTheNodesAre) {
    TSourceGraph graph{{"w"}, {"r", "s"}, {{"w", 0, kNoPlace, 2}}, {}};
    EXPECT_EQ(WriteGraphAsHtml(graph, GRAPH_OF_LIBRARIES, "b", "{{data}}"),
              "{\"title\":\"b\",\"by\":\"library\",\"libraries\":[\"w\"],\n"
              "\"folders\":[\"r\",\"s\"],\n\"nodes\":[\n[\"w\",0,-1,2,1,-1]],\n\"edges\":[]}");
    EXPECT_EQ(WriteGraphAsHtml({}, GRAPH_OF_FOLDERS, "", "{{data}}"),
              "{\"title\":\"\",\"by\":\"folder\",\"libraries\":[],\n"
              "\"folders\":[],\n\"nodes\":[],\n\"edges\":[]}");
}

TEST(HtmlGraph, NamesEndNoElementAndAreNotFilledIn) {
    const TSourceGraph graph{{"{{title}}"}, {"\"\\"}, {{"</script><!--\n\xFF", 0, 0}}, {}};
    EXPECT_EQ(WriteGraphAsHtml(graph, GRAPH_OF_FILES, "{{data}}", "<i>{{title}}</i>{{data}}{{"),
              "<i>{{data}}</i>{\"title\":\"{{data}}\",\"by\":\"file\","
              "\"libraries\":[\"{{title}}\"],\n\"folders\":[\"\\\"\\\\\"],\n"
              "\"nodes\":[\n[\"\\u003c/script>\\u003c!--␊\uFFFD\",0,0,1,1,-1]],\n"
              "\"edges\":[]}{{");
}

TEST(HtmlGraph, PageIsWholeAndAsksNothingOfANetwork) {
    const std::string page(GetGraphPage());
    if (page.empty()) GTEST_SKIP() << "built without the npm registry";
    EXPECT_EQ(page.substr(0, 16), "<!DOCTYPE html>\n");
    EXPECT_EQ(page.substr(page.size() - 16), "</body>\n</html>\n");
    for (const char* once : {">{{data}}</script>", "default-src 'none'", "Guillaume Plique\n",
                             "Alexis Jacomy", "class GraphModel", "function layOut("})
        EXPECT_EQ(page.find(once), page.rfind(once)) << once;
    for (const char* none : {"{{style}}", "{{libraries}}", "{{script}}", "<link",
                             " src=", "sourceMappingURL", "@import", "url("})
        EXPECT_EQ(page.find(none), std::string::npos) << none;
}
