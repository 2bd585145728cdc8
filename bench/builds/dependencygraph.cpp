#include "bench/builds/dependencygraph.h"
#include <algorithm>

namespace {

// A source's neighbours: the files of its part of the design.
constexpr std::uint32_t kNeighbours = 256;
// One of so many files is basic: a package that files of all parts use.
constexpr std::uint32_t kFilesForABasicOne = 16;
constexpr std::uint32_t kLayers = 20;

}  // namespace

TDependencyGraph::TDependencyGraph(TShape shape, std::uint32_t count, std::uint32_t dependencies,
                                   TRandom* random) {
    Ends.reserve(count);
    Dependencies.reserve(std::size_t{count} * dependencies);
    for (std::uint32_t source = 0; source < count; ++source) {
        if (shape == TShape::RANDOM) AddRandom(source, count, dependencies, random);
        if (shape == TShape::CHAIN) AddChain(source, dependencies);
        if (shape == TShape::DIAMOND) AddDiamond(source, std::max(dependencies, 1u));
        if (shape == TShape::LAYERED) AddLayered(source, count, dependencies, random);
        Ends.push_back(Dependencies.size());
    }
}

std::span<const std::uint32_t> TDependencyGraph::GetDependencies(std::uint32_t source) const {
    const std::size_t begin = source ? Ends[source - 1] : 0;
    return {Dependencies.data() + begin, Ends[source] - begin};
}

// Three of four dependencies are neighbours, the others basic files.
void TDependencyGraph::AddRandom(std::uint32_t source, std::uint32_t count,
                                 std::uint32_t dependencies, TRandom* random) {
    const std::uint32_t wanted = std::min(random->Below(2 * dependencies + 1), source);
    const std::uint32_t near = std::min(source, kNeighbours);
    const std::uint32_t basic = std::min(source, std::max(count / kFilesForABasicOne, 1u));
    std::uint32_t added = 0;
    for (std::uint32_t draws = 0; added < wanted && draws < 4 * wanted; ++draws) {
        const bool isNear = random->Below(4) < 3;
        added += AddUnlessThere(isNear ? source - 1 - random->Below(near) : random->Below(basic));
    }
}

void TDependencyGraph::AddLayered(std::uint32_t source, std::uint32_t count,
                                  std::uint32_t dependencies, TRandom* random) {
    const std::uint32_t width = std::max(count / kLayers, 1u);
    if (source < width || !dependencies) return;
    const std::uint32_t below = (source / width - 1) * width;
    for (std::uint32_t wanted = 1 + random->Below(2 * dependencies - 1); wanted; --wanted)
        AddUnlessThere(below + random->Below(width));
}

void TDependencyGraph::AddChain(std::uint32_t source, std::uint32_t dependencies) {
    for (std::uint32_t distance = 1; distance <= std::min(source, dependencies); ++distance)
        Dependencies.push_back(source - distance);
}

void TDependencyGraph::AddDiamond(std::uint32_t source, std::uint32_t width) {
    if (source < width) return;
    const std::uint32_t below = (source / width - 1) * width;
    for (std::uint32_t place = 0; place < width; ++place) Dependencies.push_back(below + place);
}

// Whether it was added to the source whose dependencies are being made.
bool TDependencyGraph::AddUnlessThere(std::uint32_t dependency) {
    const auto begin =
        Dependencies.begin() + static_cast<std::ptrdiff_t>(Ends.empty() ? 0 : Ends.back());
    if (std::find(begin, Dependencies.end(), dependency) != Dependencies.end()) return false;
    Dependencies.push_back(dependency);
    return true;
}
