#include "flows/cyclicsets.h"
#include <gtest/gtest.h>

TEST(CyclicSets, AreInTheOrderOfTheirFirstPlaces) {
    using TSets = std::vector<std::vector<std::size_t>>;
    const struct {
        const char* Label;
        TEdgesOfPlaces Edges;
        TSets Sets;
    } rows[] = {
        {"no place", {}, {}},
        {"no edge", {{}, {}}, {}},
        {"no cycle", {{1, 2}, {2}, {}}, {}},
        {"an edge to itself", {{}, {1, 0}}, {{1}}},
        {"two that are joined", {{3}, {2}, {1, 0}, {0}}, {{0, 3}, {1, 2}}},
        {"one met from behind", {{}, {2}, {3}, {1, 0}}, {{1, 2, 3}}},
    };
    for (const auto& row : rows) EXPECT_EQ(FindCyclicSets(row.Edges), row.Sets) << row.Label;
}

TEST(CyclicSets, TakeAnyDepth) {
    TEdgesOfPlaces ring(200000);
    for (std::size_t at = 0; at < ring.size(); ++at) ring[at] = {(at + 1) % ring.size()};
    const auto sets = FindCyclicSets(ring);
    ASSERT_EQ(sets.size(), 1u);
    EXPECT_EQ(sets[0].size(), ring.size());
}
