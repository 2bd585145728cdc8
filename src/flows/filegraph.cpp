#include "flows/filegraph.h"
#include <algorithm>
#include <cstddef>

TFileGraph ReverseGraph(const TFileGraph& graph) {
    TFileGraph reversed(graph.size());
    for (std::uint32_t file = 0; file < graph.size(); ++file)
        for (const std::uint32_t needed : graph[file]) reversed[needed].push_back(file);
    return reversed;
}

std::vector<std::uint32_t> ListReached(const TFileGraph& graph,
                                       const std::vector<std::uint32_t>& files) {
    struct TFrame {
        std::uint32_t File;
        std::size_t NextNeed;
    };
    std::vector<std::uint32_t> reached;
    std::vector<bool> isMet(graph.size());
    std::vector<TFrame> frames;
    const auto enter = [&](std::uint32_t file) {
        if (isMet[file]) return;
        isMet[file] = true;
        frames.push_back({file, 0});
    };
    for (const std::uint32_t start : files) {
        enter(start);
        while (!frames.empty()) {
            const std::uint32_t file = frames.back().File;
            if (frames.back().NextNeed < graph[file].size()) {
                enter(graph[file][frames.back().NextNeed++]);
                continue;
            }
            reached.push_back(file);
            frames.pop_back();
        }
    }
    return reached;
}

std::vector<std::uint32_t> FindShortestChain(const TFileGraph& graph, std::uint32_t from,
                                             std::uint32_t to) {
    constexpr auto kNoUser = static_cast<std::uint32_t>(-1);
    std::vector<std::uint32_t> users(graph.size(), kNoUser);
    std::vector<std::uint32_t> queue = {from};
    users[from] = from;
    for (std::size_t at = 0; at < queue.size() && users[to] == kNoUser; ++at)
        for (const std::uint32_t needed : graph[queue[at]]) {
            if (users[needed] != kNoUser) continue;
            users[needed] = queue[at];
            queue.push_back(needed);
        }
    std::vector<std::uint32_t> chain;
    if (users[to] == kNoUser) return chain;
    for (std::uint32_t file = to; file != from; file = users[file]) chain.push_back(file);
    chain.push_back(from);
    std::reverse(chain.begin(), chain.end());
    return chain;
}
