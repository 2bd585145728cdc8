#include "flows/graph/dotgraph.h"
#include "flows/graph/graphtext.h"
#include <iterator>

namespace {

// Light enough for black text, and none of them red: that is for cycles.
constexpr const char* kLibraryColors[] = {"#cfe3fb", "#ffe2b3", "#d3efd2", "#e5d9f7", "#fff3b0",
                                          "#c9f0ee", "#e8dccb", "#dfe3e8", "#dcedc1", "#d6dcff"};
constexpr const char* kColorOfSeveral = "#ffffff";
constexpr const char* kCycle = "color=\"#c62828\", penwidth=2";

constexpr const char* kHead =
    "    graph [rankdir=LR];\n"
    "    node [shape=box, style=\"filled,rounded\", color=\"#5b6673\", fontsize=11, "
    "fontname=\"Helvetica,Arial,sans-serif\"];\n"
    "    edge [color=\"#5b6673\", fontsize=9, fontname=\"Helvetica,Arial,sans-serif\"];\n";

const char* ColorOf(const TGraphNode& node) {
    return node.Library == kNoPlace ? kColorOfSeveral
                                    : kLibraryColors[node.Library % std::size(kLibraryColors)];
}

/// The second line of a label; "" when it has none.
std::string DetailOf(const TSourceGraph& graph, const TGraphNode& node) {
    if (!node.File)
        return std::to_string(node.FileCount) + (node.FileCount == 1 ? " file" : " files");
    return graph.Libraries.size() > 1 ? graph.Libraries[node.Library] : "";
}

std::string NodeLine(const TSourceGraph& graph, std::size_t place) {
    const TGraphNode& node = graph.Nodes[place];
    std::string label = DotText(node.Name);
    if (const std::string detail = DetailOf(graph, node); !detail.empty()) {
        label.pop_back();
        label += "\\n" + DotText(detail).substr(1);
    }
    std::string line = "    n" + std::to_string(place) + " [label=" + label + ", fillcolor=\"" +
                       ColorOf(node) + "\"";
    if (!node.IsListed) line += ", style=\"filled,rounded,dashed\"";
    if (node.Cycle != kNoPlace) line += std::string(", ") + kCycle;
    return line + "];\n";
}

std::string EdgeLine(const TSourceGraph& graph, const TGraphEdge& edge) {
    std::string attributes;
    if (edge.Count > 1) attributes = "label=\"" + std::to_string(edge.Count) + "\"";
    if (graph.IsOnCycle(edge)) attributes += (attributes.empty() ? "" : ", ") + std::string(kCycle);
    return "    n" + std::to_string(edge.From) + " -> n" + std::to_string(edge.To) +
           (attributes.empty() ? "" : " [" + attributes + "]") + ";\n";
}

}  // namespace

std::string WriteGraphAsDot(const TSourceGraph& graph, const std::string& title) {
    std::string text = "digraph " + DotText(title) + " {\n" + kHead;
    for (std::size_t place = 0; place < graph.Nodes.size(); ++place) text += NodeLine(graph, place);
    for (const TGraphEdge& edge : graph.Edges) text += EdgeLine(graph, edge);
    return text + "}\n";
}
