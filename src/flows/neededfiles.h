#pragma once
#include "flows/buildneeds.h"
#include "flows/buildtops.h"
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

/// A unit that is top level.
struct TWantedTop {
    TUnitPlace Unit;
    std::string Architecture;  ///< "" for all that it has
};

/// Finds the files of a build without which top-level units can neither be compiled nor elaborated.
///
/// What is elaborated needs what it instantiates; an entity of which no architecture is named needs
/// all, a package its body. A file is compiled whole: all of its units need what they need to be
/// compiled, and what the file records as dependencies it needs as well.
class TNeededFiles {
public:
    /// `needs` has the scan's, which kept the units. Keeps both, not copies.
    TNeededFiles(const TBuildScan& scan, const TBuildNeeds& needs);

    /// The units of that name that are no secondary ones, in the order of the files; of one library
    /// and language the first. An empty library means all. Names of VHDL are compared as it does.
    std::vector<TUnitPlace> FindUnits(const TBuildTop& name) const;
    /// The architectures of an entity, and the body of a package.
    std::vector<TUnitPlace> GetSecondaries(TUnitPlace unit) const;

    void Add(const TWantedTop& top);
    /// Adds a source of the scan, with all that stands in it.
    void AddSource(std::uint32_t source);

    /// Whether the file of that number is needed by what was added.
    bool IsNeeded(std::uint32_t file) const { return IsCompiled[file]; }
    /// The needed files, each behind those that have to be compiled before it, and else in the
    /// order of the groups. `*isCyclic` tells that there is no such order.
    std::vector<std::uint32_t> ListInOrder(bool* isCyclic) const;

private:
    void Follow();
    void Compile(std::uint32_t file);
    void Elaborate(TUnitPlace unit);
    void ElaborateWhole(TUnitPlace unit, const std::string& architecture);
    void FollowFile(std::uint32_t file);
    void FollowUnit(TUnitPlace unit);
    void FollowLink(const TLinkedUnit& link);
    std::size_t SlotOf(TUnitPlace unit) const;
    std::uint32_t NumberOf(std::uint32_t source) const { return Numbers[source]; }

    const TBuildScan& Scan;
    const TBuildNeeds& Needs;
    std::vector<std::uint32_t> Numbers;               // of the scanned sources
    std::vector<std::vector<std::uint32_t>> Sources;  // of each number; two when two groups list it
    // A slot for each unit and, for each source, one for what stands outside of units.
    std::vector<std::size_t> FirstSlots;
    std::vector<std::size_t> FirstLinks;  // of the slots, with an end
    std::vector<std::vector<TUnitPlace>> Secondaries;
    std::vector<bool> IsCompiled;    // by number
    std::vector<bool> IsElaborated;  // by slot
    std::vector<std::uint32_t> FilesToFollow;
    std::vector<TUnitPlace> UnitsToFollow;
};
