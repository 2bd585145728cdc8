#pragma once
#include <cstddef>
#include <vector>

/// The places that the edges from each place of a graph lead to.
using TEdgesOfPlaces = std::vector<std::vector<std::size_t>>;

/// The strongly connected components that hold a cycle, a place with an edge to itself included.
/// Each is in ascending order, and they stand in the order of their first places. Linear.
std::vector<std::vector<std::size_t>> FindCyclicSets(const TEdgesOfPlaces& edges);
