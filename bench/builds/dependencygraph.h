#pragma once
#include "bench/builds/random.h"
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

/// How the sources of a generated build depend on each other.
enum class TShape {
    RANDOM,   ///< mostly on near neighbours, partly on a few basic packages
    CHAIN,    ///< each on the files just below it
    DIAMOND,  ///< small layers, each file on the whole layer below
    LAYERED,  ///< twenty layers, each file on some of the layer below
};

struct TShapeName {
    const char* Name;
    TShape Shape;
};
inline constexpr TShapeName kShapeNames[] = {
    {"random", TShape::RANDOM},
    {"chain", TShape::CHAIN},
    {"diamond", TShape::DIAMOND},
    {"layered", TShape::LAYERED},
};

/// The sources 0 to `count` - 1 and their dependencies. Each depends on smaller numbers only, so
/// there is no cycle.
class TDependencyGraph {
public:
    /// `dependencies` is the average number for a source of the shapes random and layered, and the
    /// exact one of the others, apart from the lowest sources.
    TDependencyGraph(TShape shape, std::uint32_t count, std::uint32_t dependencies,
                     TRandom* random);

    std::uint32_t GetCount() const { return static_cast<std::uint32_t>(Ends.size()); }
    std::size_t GetDependencyCount() const { return Dependencies.size(); }
    /// The dependencies of one source, each once, in the order to be written.
    std::span<const std::uint32_t> GetDependencies(std::uint32_t source) const;

private:
    void AddRandom(std::uint32_t source, std::uint32_t count, std::uint32_t dependencies,
                   TRandom* random);
    void AddLayered(std::uint32_t source, std::uint32_t count, std::uint32_t dependencies,
                    TRandom* random);
    void AddChain(std::uint32_t source, std::uint32_t dependencies);
    void AddDiamond(std::uint32_t source, std::uint32_t width);
    bool AddUnlessThere(std::uint32_t dependency);

    std::vector<std::uint32_t> Dependencies;  // of all sources, one after the other
    std::vector<std::size_t> Ends;            // where each source's dependencies end
};
