#pragma once
#include "flows/graph/sourcegraph.h"
#include <sstream>
#include <string>

/// A line for each node with all that is known of it, then one for each edge.
inline std::string TextOf(const TSourceGraph& graph) {
    const auto nameAt = [](const std::vector<std::string>& names, std::size_t place) {
        return place == kNoPlace ? "?" : names[place];
    };
    std::ostringstream text;
    for (const TGraphNode& node : graph.Nodes) {
        text << node.Name << " library=" << nameAt(graph.Libraries, node.Library)
             << " folder=" << nameAt(graph.Folders, node.Folder) << " files=" << node.FileCount;
        if (!node.IsListed) text << " unlisted";
        if (node.Cycle != kNoPlace) text << " cycle=" << node.Cycle;
        text << "\n";
    }
    for (const TGraphEdge& edge : graph.Edges) {
        text << graph.Nodes[edge.From].Name << " > " << graph.Nodes[edge.To].Name;
        if (edge.Count != 1) text << " x" << edge.Count;
        if (graph.IsOnCycle(edge)) text << " cycle";
        text << "\n";
    }
    return text.str() + "cycles=" + std::to_string(graph.CycleCount) + "\n";
}
