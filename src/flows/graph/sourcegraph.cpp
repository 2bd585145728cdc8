#include "flows/graph/sourcegraph.h"
#include "flows/cyclicsets.h"
#include "flows/listedsources.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/base/progress.h"
#include "services/names/isfilename.h"
#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <unordered_map>

namespace {

/// Texts in the order in which they were met.
class TPlacesOfTexts {
public:
    explicit TPlacesOfTexts(std::vector<std::string>* texts) : Texts(texts) {}

    std::size_t PlaceOf(const std::string& text) {
        const auto [entry, added] = Places.try_emplace(text, Texts->size());
        if (added) Texts->push_back(text);
        return entry->second;
    }

private:
    std::vector<std::string>* Texts;
    std::unordered_map<std::string, std::size_t> Places;
};

std::string FolderOf(const std::string& name) {
    const char delimiters[] = {'/', static_cast<char>(std::filesystem::path::preferred_separator)};
    const std::size_t end = name.find_last_of(delimiters, std::string::npos, sizeof(delimiters));
    if (end == std::string::npos) return ".";
    return name.substr(0, end == 0 ? 1 : end);
}

class TGraphMaker {
public:
    TGraphMaker(const THdlBuildFile& build,
                const std::function<std::string(const ISFileName*)>& nameOf)
        : Build(build), NameOf(nameOf) {}

    TSourceGraph Make() {
        for (const TListedSource& listed : ListSources(Build)) PlaceOf(listed.File, true);
        TProgress progress(PROGRESS_CHECK_SOURCES, Sources.size());
        // Sources grows while it is walked: files that only dependencies name come behind.
        for (std::size_t at = 0; at < Sources.size(); ++at) {
            progress.Advance();
            const TIHdlSourceFileList* const dependencies = Sources[at]->GetDependencyList();
            if (!dependencies) continue;
            for (const IHdlSourceFile* dependency : *dependencies)
                if (const std::size_t to = PlaceOf(dependency, false); to != kNoPlace)
                    Graph.Edges.push_back({at, to});
        }
        return std::move(Graph);
    }

private:
    std::size_t PlaceOf(const IHdlSourceFile* source, bool isListed) {
        const ISFileName* const file = source->GetFileName();
        if (!file) return kNoPlace;
        const auto [entry, added] = Places.try_emplace(source, Graph.Nodes.size());
        if (!added) return entry->second;
        Sources.push_back(source);
        TGraphNode& node = Graph.Nodes.emplace_back();
        node.Name = NameOf(file);
        node.Library = Libraries.PlaceOf(LibraryOfSource(*source, Build));
        node.Folder = Folders.PlaceOf(FolderOf(node.Name));
        node.IsListed = isListed;
        node.File = file;
        return entry->second;
    }

    const THdlBuildFile& Build;
    const std::function<std::string(const ISFileName*)>& NameOf;
    TSourceGraph Graph;
    TPlacesOfTexts Libraries{&Graph.Libraries}, Folders{&Graph.Folders};
    std::vector<const IHdlSourceFile*> Sources;
    std::unordered_map<const IHdlSourceFile*, std::size_t> Places;
};

void MarkCycles(TSourceGraph* graph) {
    TEdgesOfPlaces edges(graph->Nodes.size());
    for (const TGraphEdge& edge : graph->Edges) edges[edge.From].push_back(edge.To);
    const auto cycles = FindCyclicSets(edges);
    for (std::size_t cycle = 0; cycle < cycles.size(); ++cycle)
        for (const std::size_t place : cycles[cycle]) graph->Nodes[place].Cycle = cycle;
    graph->CycleCount = cycles.size();
}

/// Marks in `reached` what can be reached from `center` over at most `depth` edges.
void Reach(const TEdgesOfPlaces& edges, std::size_t center, std::size_t depth,
           std::vector<bool>* reached) {
    std::vector<bool> met(edges.size());
    std::vector<std::size_t> ring = {center};
    met[center] = true;
    for (std::size_t distance = 0; !ring.empty(); ++distance) {
        std::vector<std::size_t> next;
        for (const std::size_t place : ring) {
            (*reached)[place] = true;
            if (distance == depth) continue;
            for (const std::size_t to : edges[place]) {
                if (met[to]) continue;
                met[to] = true;
                next.push_back(to);
            }
        }
        ring = std::move(next);
    }
}

/// Cycles that no node has any more are not counted.
void CountCycles(TSourceGraph* graph) {
    std::vector<bool> met;
    graph->CycleCount = 0;
    for (const TGraphNode& node : graph->Nodes) {
        if (node.Cycle == kNoPlace) continue;
        if (node.Cycle >= met.size()) met.resize(node.Cycle + 1);
        if (!met[node.Cycle]) ++graph->CycleCount;
        met[node.Cycle] = true;
    }
}

std::size_t GroupOf(const TGraphNode& node, TGraphGrouping grouping) {
    return grouping == GRAPH_OF_LIBRARIES ? node.Library : node.Folder;
}

/// The nodes of the groups that have files, and the place of each group's node.
std::vector<std::size_t> MakeGroups(const TSourceGraph& files, TGraphGrouping grouping,
                                    TSourceGraph* groups) {
    const auto& names = grouping == GRAPH_OF_LIBRARIES ? files.Libraries : files.Folders;
    std::vector<std::size_t> places(names.size(), kNoPlace);
    for (const TGraphNode& file : files.Nodes) {
        std::size_t& place = places[GroupOf(file, grouping)];
        if (place == kNoPlace) {
            place = groups->Nodes.size();
            groups->Nodes.push_back(
                {names[GroupOf(file, grouping)], file.Library, file.Folder, 0, false});
        }
        TGraphNode& group = groups->Nodes[place];
        ++group.FileCount;
        group.IsListed = group.IsListed || file.IsListed;
        if (group.Library != file.Library) group.Library = kNoPlace;
        if (group.Folder != file.Folder) group.Folder = kNoPlace;
    }
    return places;
}

}  // namespace

TSourceGraph MakeSourceGraph(const THdlBuildFile& build,
                             const std::function<std::string(const ISFileName*)>& nameOf) {
    TSourceGraph graph = TGraphMaker(build, nameOf).Make();
    MarkCycles(&graph);
    return graph;
}

std::size_t FindNode(const TSourceGraph& graph, const ISFileName* file) {
    const auto found = std::find_if(
        graph.Nodes.begin(), graph.Nodes.end(),
        [file](const TGraphNode& node) { return node.File && node.File->IsEquivalent(*file); });
    return found == graph.Nodes.end() ? kNoPlace
                                      : static_cast<std::size_t>(found - graph.Nodes.begin());
}

TSourceGraph GraphAround(const TSourceGraph& graph, std::size_t center, std::size_t depth) {
    TEdgesOfPlaces needs(graph.Nodes.size()), neededBy(graph.Nodes.size());
    for (const TGraphEdge& edge : graph.Edges) {
        needs[edge.From].push_back(edge.To);
        neededBy[edge.To].push_back(edge.From);
    }
    std::vector<bool> reached(graph.Nodes.size());
    Reach(needs, center, depth, &reached);
    Reach(neededBy, center, depth, &reached);
    TSourceGraph around{graph.Libraries, graph.Folders, {}, {}};
    std::vector<std::size_t> places(graph.Nodes.size(), kNoPlace);
    for (std::size_t at = 0; at < graph.Nodes.size(); ++at) {
        if (!reached[at]) continue;
        places[at] = around.Nodes.size();
        around.Nodes.push_back(graph.Nodes[at]);
    }
    for (const TGraphEdge& edge : graph.Edges)
        if (reached[edge.From] && reached[edge.To])
            around.Edges.push_back({places[edge.From], places[edge.To], edge.Count});
    CountCycles(&around);
    return around;
}

TSourceGraph GraphOfGroups(const TSourceGraph& files, TGraphGrouping grouping) {
    TSourceGraph groups{files.Libraries, files.Folders, {}, {}};
    const std::vector<std::size_t> places = MakeGroups(files, grouping, &groups);
    std::unordered_map<std::uint64_t, std::size_t> edges;
    for (const TGraphEdge& edge : files.Edges) {
        const std::size_t from = places[GroupOf(files.Nodes[edge.From], grouping)];
        const std::size_t to = places[GroupOf(files.Nodes[edge.To], grouping)];
        if (from == to) continue;
        const std::uint64_t key = std::uint64_t{from} * groups.Nodes.size() + to;
        const auto [entry, added] = edges.try_emplace(key, groups.Edges.size());
        if (added) groups.Edges.push_back({from, to, 0});
        groups.Edges[entry->second].Count += edge.Count;
    }
    std::stable_sort(
        groups.Edges.begin(), groups.Edges.end(),
        [](const TGraphEdge& one, const TGraphEdge& other) { return one.From < other.From; });
    MarkCycles(&groups);
    return groups;
}
