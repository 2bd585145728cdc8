#pragma once
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

class ISFileName;
class THdlBuildFile;

inline constexpr std::size_t kNoPlace = static_cast<std::size_t>(-1);

/// What a node of a graph stands for.
enum TGraphGrouping {
    GRAPH_OF_FILES,
    GRAPH_OF_LIBRARIES,
    GRAPH_OF_FOLDERS,
};

/// A file, or the files of a library or a folder.
struct TGraphNode {
    std::string Name;
    std::size_t Library = kNoPlace;    ///< its place; kNoPlace for files of several
    std::size_t Folder = kNoPlace;     ///< likewise
    std::size_t FileCount = 1;         ///< the files that it stands for
    bool IsListed = true;              ///< false for a file that only dependencies name
    std::size_t Cycle = kNoPlace;      ///< equal for nodes that need each other, directly or not
    const ISFileName* File = nullptr;  ///< null for a library and a folder
};

/// `From` needs `To`: a dependency of one file on another, or all those between two groups.
struct TGraphEdge {
    std::size_t From;
    std::size_t To;
    std::size_t Count = 1;
};

/// Which sources of a build need which, for whoever draws it.
struct TSourceGraph {
    std::vector<std::string> Libraries;
    std::vector<std::string> Folders;
    std::vector<TGraphNode> Nodes;
    std::vector<TGraphEdge> Edges;  ///< in ascending order of From
    std::size_t CycleCount = 0;     ///< the sets of nodes that need each other

    /// Whether the edge lies on a cycle.
    bool IsOnCycle(const TGraphEdge& edge) const {
        return Nodes[edge.From].Cycle != kNoPlace && Nodes[edge.From].Cycle == Nodes[edge.To].Cycle;
    }
};

/// The files of all groups in their order, then those that only dependencies name. `nameOf` gives
/// the name of a node for the file's canonical path; a folder is the part in front of the name's
/// last delimiter, "." without one.
TSourceGraph MakeSourceGraph(const THdlBuildFile& build,
                             const std::function<std::string(const ISFileName*)>& nameOf);

/// The node of a file; kNoPlace for one that is not in the graph.
std::size_t FindNode(const TSourceGraph& graph, const ISFileName* file);

/// The node at `center`, what it needs and what needs it, over at most `depth` edges in a row. The
/// nodes keep their order and the cycles that they have in the whole graph.
TSourceGraph GraphAround(const TSourceGraph& graph, std::size_t center, std::size_t depth);

/// The graph of the libraries or folders of a graph of files, in the order of their first files.
/// Edges inside of a group are left out.
TSourceGraph GraphOfGroups(const TSourceGraph& files, TGraphGrouping grouping);
