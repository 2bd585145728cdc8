#include "flows/graph/htmlgraph.h"
#include "flows/graph/graphtext.h"

namespace {

constexpr const char* kNamesOfGroupings[] = {"file", "library", "folder"};

std::string ListOf(const std::vector<std::string>& texts) {
    std::string list = "[";
    for (const std::string& text : texts) list += (list.size() > 1 ? "," : "") + JsonText(text);
    return list + "]";
}

std::string PlaceText(std::size_t place) {
    return place == kNoPlace ? "-1" : std::to_string(place);
}

/// A row of name, library, folder, files, listed (1 or 0), cycle; -1 is none.
std::string RowOf(const TGraphNode& node) {
    return "[" + JsonText(node.Name) + "," + PlaceText(node.Library) + "," +
           PlaceText(node.Folder) + "," + std::to_string(node.FileCount) + "," +
           (node.IsListed ? "1" : "0") + "," + PlaceText(node.Cycle) + "]";
}

/// One JSON object. Of edges there are many: three numbers in a row are one.
std::string DataOf(const TSourceGraph& graph, TGraphGrouping grouping, const std::string& title) {
    std::string data = "{\"title\":" + JsonText(title) + ",\"by\":\"" +
                       kNamesOfGroupings[grouping] + "\",\"libraries\":" + ListOf(graph.Libraries) +
                       ",\n\"folders\":" + ListOf(graph.Folders) + ",\n\"nodes\":[";
    for (const TGraphNode& node : graph.Nodes)
        data += (&node == &graph.Nodes.front() ? "\n" : ",\n") + RowOf(node);
    data += "],\n\"edges\":[";
    for (const TGraphEdge& edge : graph.Edges)
        data += (&edge == &graph.Edges.front() ? "" : ",") + std::to_string(edge.From) + "," +
                std::to_string(edge.To) + "," + std::to_string(edge.Count);
    return data + "]}";
}

}  // namespace

std::string WriteGraphAsHtml(const TSourceGraph& graph, TGraphGrouping grouping,
                             const std::string& title, std::string_view page) {
    static constexpr std::string_view kTitle = "{{title}}";
    static constexpr std::string_view kData = "{{data}}";
    std::string html;
    // What is filled in is not looked through.
    for (std::size_t place; (place = page.find("{{")) != std::string_view::npos;) {
        html += page.substr(0, place);
        page.remove_prefix(place);
        if (page.starts_with(kTitle)) {
            html += HtmlText(title);
            page.remove_prefix(kTitle.size());
        } else if (page.starts_with(kData)) {
            html += DataOf(graph, grouping, title);
            page.remove_prefix(kData.size());
        } else {
            html += page.substr(0, 2);
            page.remove_prefix(2);
        }
    }
    return html.append(page);
}
