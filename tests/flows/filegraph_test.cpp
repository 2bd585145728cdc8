#include "flows/filegraph.h"
#include <gtest/gtest.h>

namespace {

using TNumbers = std::vector<std::uint32_t>;

// 0 needs 1 and 2, both need 3; 4 needs nobody; 5 and 6 need each other, 6 needs 3.
const TFileGraph kGraph = {{2, 1}, {3}, {3}, {}, {}, {6}, {5, 3}};

}  // namespace

TEST(FileGraph, ReversesNeeds) {
    EXPECT_EQ(ReverseGraph(kGraph), (TFileGraph{{}, {0}, {0}, {1, 2, 6}, {}, {6}, {5}}));
}

TEST(FileGraph, ListsWhatIsReachedBehindItsNeeds) {
    EXPECT_EQ(ListReached(kGraph, {0}), (TNumbers{3, 2, 1, 0}));
    EXPECT_EQ(ListReached(kGraph, {4, 1, 0}), (TNumbers{4, 3, 1, 2, 0}));
    EXPECT_EQ(ListReached(kGraph, {5}), (TNumbers{3, 6, 5}));
    EXPECT_EQ(ListReached(kGraph, {}), TNumbers());
}

TEST(FileGraph, FindsAShortestChain) {
    EXPECT_EQ(FindShortestChain(kGraph, 0, 3), (TNumbers{0, 2, 3}));
    EXPECT_EQ(FindShortestChain(kGraph, 5, 3), (TNumbers{5, 6, 3}));
    EXPECT_EQ(FindShortestChain(kGraph, 4, 4), (TNumbers{4}));
    EXPECT_EQ(FindShortestChain(kGraph, 3, 0), TNumbers());
    EXPECT_EQ(FindShortestChain({{1}, {2}, {0, 3}, {}, {0}}, 4, 3), (TNumbers{4, 0, 1, 2, 3}));
}

TEST(FileGraph, NeedsNoStackForLongChains) {
    constexpr std::uint32_t kLength = 300'000;
    TFileGraph graph(kLength);
    for (std::uint32_t file = 0; file + 1 < kLength; ++file) graph[file] = {file + 1};
    const TNumbers reached = ListReached(graph, {0});
    EXPECT_EQ(reached.size(), kLength);
    EXPECT_EQ(reached.front(), kLength - 1);
    EXPECT_EQ(FindShortestChain(graph, 0, kLength - 1).size(), kLength);
}
