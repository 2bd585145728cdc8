#include "flows/dependencycycles.h"
#include "flows/cyclicsets.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/base/progress.h"
#include <algorithm>
#include <cstddef>
#include <unordered_map>

namespace {

using TIndex = std::size_t;
constexpr TIndex kNone = static_cast<TIndex>(-1);
// A shortest cycle is sought with at most so many steps for each edge and file of a set, of a large
// set with fewer: a user who waits would rather have a cycle that is a little longer.
constexpr std::size_t kStepsPerEdge = 64;
constexpr std::size_t kStepsPerEdgeOfManyFiles = 2;
constexpr std::size_t kManySteps = 4'000'000;

std::size_t MostSteps(std::size_t size) {
    return std::min(kStepsPerEdge * size, std::max(kManySteps, kStepsPerEdgeOfManyFiles * size));
}

struct TGraph {
    std::vector<const IHdlSourceFile*> Files;
    TEdgesOfPlaces Edges;
};

/// Whether the file may lie on a cycle. Most files of a build depend on none, and take no memory
/// then.
bool HasDependencies(const IHdlSourceFile* file) {
    const TIHdlSourceFileList* dependencies = file->GetDependencyList();
    return dependencies && !dependencies->empty();
}

TGraph BuildGraph(const std::vector<const IHdlSourceFile*>& roots) {
    TGraph graph;
    std::unordered_map<const IHdlSourceFile*, TIndex> places;
    const auto place = [&](const IHdlSourceFile* file) {
        const auto [entry, added] = places.try_emplace(file, graph.Files.size());
        if (added) graph.Files.push_back(file);
        return entry->second;
    };
    for (const IHdlSourceFile* root : roots)
        if (HasDependencies(root)) place(root);
    TProgress progress(PROGRESS_CHECK_SOURCES, graph.Files.size());
    // Files grows while it is walked: each file's dependencies are met after the roots.
    for (TIndex at = 0; at < graph.Files.size(); ++at) {
        progress.Advance();
        auto& edges = graph.Edges.emplace_back();
        for (const IHdlSourceFile* dependency : *graph.Files[at]->GetDependencyList())
            if (HasDependencies(dependency)) edges.push_back(place(dependency));
    }
    return graph;
}

/// Finds a shortest cycle of one strongly connected set: breadth first from each member in turn,
/// which is then taken out with all that no longer lies on a cycle, so that a plain ring takes one
/// search.
class TShortestCycle {
public:
    TShortestCycle(const TGraph& graph, const std::vector<TIndex>& members)
        : Graph(graph), Members(members) {
        for (TIndex place = 0; place < members.size(); ++place) Places[members[place]] = place;
        Edges.resize(members.size());
        Incoming.resize(members.size());
        for (TIndex place = 0; place < members.size(); ++place)
            for (const TIndex target : graph.Edges[members[place]])
                if (const auto found = Places.find(target); found != Places.end()) {
                    Edges[place].push_back(found->second);
                    Incoming[found->second].push_back(place);
                    ++EdgeCount;
                }
        Alive.assign(members.size(), true);
        Outgoing.resize(members.size());
        Entering.resize(members.size());
        for (TIndex place = 0; place < members.size(); ++place) {
            Outgoing[place] = Edges[place].size();
            Entering[place] = Incoming[place].size();
        }
        Parent.assign(members.size(), kNone);
        Distance.assign(members.size(), kNone);
    }

    std::vector<const IHdlSourceFile*> Find() {
        const std::size_t budget = MostSteps(Members.size() + EdgeCount);
        for (TIndex place = 0; place < Members.size(); ++place) {
            if (!Alive[place]) continue;
            SearchFrom(place);
            // Nothing is shorter than depending on oneself.
            if (Best.size() == 1 || Steps > budget) break;
            TakeOut(place);
        }
        std::vector<const IHdlSourceFile*> files;
        for (const TIndex place : Best) files.push_back(Graph.Files[Members[place]]);
        return files;
    }

private:
    void SearchFrom(TIndex start) {
        std::vector<TIndex> queue = {start};
        Distance[start] = 0;
        for (std::size_t at = 0; at < queue.size(); ++at) {
            const TIndex from = queue[at];
            if (!Best.empty() && Distance[from] + 1 >= Best.size()) break;
            for (const TIndex to : Edges[from]) {
                ++Steps;
                if (to == start) {
                    KeepCycle(start, from);
                    at = queue.size();
                    break;
                }
                if (!Alive[to] || Distance[to] != kNone) continue;
                Distance[to] = Distance[from] + 1;
                Parent[to] = from;
                queue.push_back(to);
            }
        }
        for (const TIndex place : queue) Distance[place] = Parent[place] = kNone;
    }

    void KeepCycle(TIndex start, TIndex last) {
        Best.clear();
        for (TIndex at = last; at != start; at = Parent[at]) Best.push_back(at);
        Best.push_back(start);
        std::reverse(Best.begin(), Best.end());
    }

    void TakeOut(TIndex first) {
        std::vector<TIndex> leaving = {first};
        Alive[first] = false;
        while (!leaving.empty()) {
            const TIndex place = leaving.back();
            leaving.pop_back();
            for (const TIndex to : Edges[place])
                if (--Entering[to] == 0 && Alive[to]) Alive[to] = false, leaving.push_back(to);
            for (const TIndex from : Incoming[place])
                if (--Outgoing[from] == 0 && Alive[from])
                    Alive[from] = false, leaving.push_back(from);
        }
    }

    const TGraph& Graph;
    const std::vector<TIndex>& Members;
    std::unordered_map<TIndex, TIndex> Places;
    std::vector<std::vector<TIndex>> Edges, Incoming;
    std::vector<std::size_t> Outgoing, Entering;
    std::vector<bool> Alive;
    std::vector<TIndex> Parent, Distance, Best;
    std::size_t EdgeCount = 0;
    std::size_t Steps = 0;
};

}  // namespace

std::vector<TDependencyCycle> FindDependencyCycles(
    const std::vector<const IHdlSourceFile*>& roots) {
    const TGraph graph = BuildGraph(roots);
    std::vector<TDependencyCycle> cycles;
    for (const auto& members : FindCyclicSets(graph.Edges)) {
        TDependencyCycle& cycle = cycles.emplace_back();
        for (const TIndex member : members) cycle.Files.push_back(graph.Files[member]);
        cycle.Shortest = TShortestCycle(graph, members).Find();
    }
    return cycles;
}
