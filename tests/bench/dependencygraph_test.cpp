#include "bench/builds/dependencygraph.h"
#include <gtest/gtest.h>
#include <set>

namespace {

TDependencyGraph MakeGraph(TShape shape, std::uint32_t count, std::uint32_t dependencies) {
    TRandom random(7);
    return {shape, count, dependencies, &random};
}

std::vector<std::uint32_t> DependenciesOf(const TDependencyGraph& graph, std::uint32_t source) {
    const auto dependencies = graph.GetDependencies(source);
    return {dependencies.begin(), dependencies.end()};
}

}  // namespace

TEST(DependencyGraph, HasNoCycleAndNoDependencyTwice) {
    for (const TShapeName& shape : kShapeNames) {
        for (const std::uint32_t count : {1u, 2u, 19u, 100u, 5000u}) {
            for (const std::uint32_t dependencies : {0u, 1u, 4u, 9u}) {
                SCOPED_TRACE(testing::Message() << shape.Name << ", " << count << " sources, "
                                                << dependencies << " dependencies");
                const TDependencyGraph graph = MakeGraph(shape.Shape, count, dependencies);
                ASSERT_EQ(graph.GetCount(), count);
                std::size_t total = 0;
                for (std::uint32_t source = 0; source < count; ++source) {
                    const auto listed = DependenciesOf(graph, source);
                    const std::set<std::uint32_t> different(listed.begin(), listed.end());
                    ASSERT_EQ(different.size(), listed.size()) << source;
                    if (!listed.empty()) {
                        ASSERT_LT(*different.rbegin(), source);
                    }
                    total += listed.size();
                }
                EXPECT_EQ(graph.GetDependencyCount(), total);
            }
        }
    }
}

TEST(DependencyGraph, GivesRandomAndLayeredSourcesTheAverageWished) {
    const auto average = [](TShape shape) {
        return static_cast<double>(MakeGraph(shape, 20000, 4).GetDependencyCount()) / 20000;
    };
    EXPECT_NEAR(average(TShape::RANDOM), 4, 0.1);
    // The lowest of the twenty layers has none.
    EXPECT_NEAR(average(TShape::LAYERED), 4 * 0.95, 0.1);
}

TEST(DependencyGraph, ChainsEachSourceToThoseJustBelow) {
    const TDependencyGraph graph = MakeGraph(TShape::CHAIN, 5, 2);
    EXPECT_EQ(DependenciesOf(graph, 0), (std::vector<std::uint32_t>{}));
    EXPECT_EQ(DependenciesOf(graph, 1), (std::vector<std::uint32_t>{0}));
    EXPECT_EQ(DependenciesOf(graph, 2), (std::vector<std::uint32_t>{1, 0}));
    EXPECT_EQ(DependenciesOf(graph, 4), (std::vector<std::uint32_t>{3, 2}));
}

TEST(DependencyGraph, PutsDiamondsOnAllOfTheLayerBelow) {
    const TDependencyGraph graph = MakeGraph(TShape::DIAMOND, 5, 2);
    EXPECT_EQ(DependenciesOf(graph, 1), (std::vector<std::uint32_t>{}));
    EXPECT_EQ(DependenciesOf(graph, 2), (std::vector<std::uint32_t>{0, 1}));
    EXPECT_EQ(DependenciesOf(graph, 3), (std::vector<std::uint32_t>{0, 1}));
    EXPECT_EQ(DependenciesOf(graph, 4), (std::vector<std::uint32_t>{2, 3}));
}

TEST(DependencyGraph, KeepsLayeredSourcesToTheLayerBelow) {
    const TDependencyGraph graph = MakeGraph(TShape::LAYERED, 2000, 4);
    for (std::uint32_t source = 0; source < 2000; ++source)
        for (const std::uint32_t dependency : graph.GetDependencies(source))
            ASSERT_EQ(dependency / 100 + 1, source / 100) << source;
}

TEST(DependencyGraph, TakesThreeOfFourRandomDependenciesFromTheNeighbours) {
    const TDependencyGraph graph = MakeGraph(TShape::RANDOM, 20000, 4);
    std::size_t near = 0;
    for (std::uint32_t source = 0; source < 20000; ++source)
        for (const std::uint32_t dependency : graph.GetDependencies(source)) {
            const bool isNear = source - dependency <= 256;
            ASSERT_TRUE(isNear || dependency < 20000 / 16) << source;
            near += isNear;
        }
    EXPECT_NEAR(static_cast<double>(near) / static_cast<double>(graph.GetDependencyCount()), 0.75,
                0.02);
}
