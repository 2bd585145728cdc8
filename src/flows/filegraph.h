#pragma once
#include <cstdint>
#include <vector>

/// For each file, by number, the files that it needs.
using TFileGraph = std::vector<std::vector<std::uint32_t>>;

// All of them take time in proportion to the graph, and no stack for the depth of it.

/// For each file those that need it, in ascending order.
TFileGraph ReverseGraph(const TFileGraph& graph);

/// What `files` need, directly or not, with themselves: each behind all that it needs, but for
/// cycles, and else in the order of `files` and of the needs.
std::vector<std::uint32_t> ListReached(const TFileGraph& graph,
                                       const std::vector<std::uint32_t>& files);

/// A shortest chain in which each file needs the next, with both ends; empty when there is none. Of
/// several it is the one that the order of the needs puts first.
std::vector<std::uint32_t> FindShortestChain(const TFileGraph& graph, std::uint32_t from,
                                             std::uint32_t to);
