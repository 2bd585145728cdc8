#include "flows/cyclicsets.h"
#include "services/base/progress.h"
#include <algorithm>

namespace {

using TIndex = std::size_t;
constexpr TIndex kNotEntered = static_cast<TIndex>(-1);

/// Tarjan's strongly connected components with a stack of its own, as chains may be a million deep.
class TComponentFinder {
public:
    explicit TComponentFinder(const TEdgesOfPlaces& edges)
        : Edges(edges),
          Order(edges.size(), kNotEntered),
          Low(edges.size()),
          OnStack(edges.size()) {}

    /// The components that hold a cycle, each in ascending order of place.
    std::vector<std::vector<TIndex>> Find() {
        for (TIndex at = 0; at < Edges.size(); ++at)
            if (Order[at] == kNotEntered) Walk(at);
        std::sort(Cyclic.begin(), Cyclic.end());
        return std::move(Cyclic);
    }

private:
    struct TFrame {
        TIndex At;
        std::size_t NextEdge;
    };

    void Enter(TIndex at) {
        Order[at] = Low[at] = Counter++;
        Stack.push_back(at);
        OnStack[at] = true;
        Frames.push_back({at, 0});
    }

    void Walk(TIndex root) {
        Enter(root);
        while (!Frames.empty()) {
            const TIndex at = Frames.back().At;
            if (Frames.back().NextEdge == Edges[at].size()) {
                Leave(at);
                continue;
            }
            const TIndex next = Edges[at][Frames.back().NextEdge++];
            if (Order[next] == kNotEntered)
                Enter(next);
            else if (OnStack[next])
                Low[at] = std::min(Low[at], Order[next]);
        }
    }

    void Leave(TIndex at) {
        Progress.Advance();
        Frames.pop_back();
        if (!Frames.empty()) Low[Frames.back().At] = std::min(Low[Frames.back().At], Low[at]);
        if (Low[at] != Order[at]) return;
        const auto first = std::find(Stack.rbegin(), Stack.rend(), at).base() - 1;
        std::vector<TIndex> component(first, Stack.end());
        Stack.erase(first, Stack.end());
        for (const TIndex member : component) OnStack[member] = false;
        const auto& targets = Edges[at];
        const bool dependsOnItself = std::find(targets.begin(), targets.end(), at) != targets.end();
        if (component.size() == 1 && !dependsOnItself) return;
        std::sort(component.begin(), component.end());
        Cyclic.push_back(std::move(component));
    }

    const TEdgesOfPlaces& Edges;
    TProgress Progress{PROGRESS_CHECK_SOURCES, Edges.size()};
    std::vector<TIndex> Order, Low, Stack;
    std::vector<bool> OnStack;
    std::vector<TFrame> Frames;
    std::vector<std::vector<TIndex>> Cyclic;
    TIndex Counter = 0;
};

}  // namespace

std::vector<std::vector<std::size_t>> FindCyclicSets(const TEdgesOfPlaces& edges) {
    return TComponentFinder(edges).Find();
}
