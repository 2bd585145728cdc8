#pragma once
#include "flows/linking/unitindex.h"
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

/// What a VHDL unit sees without naming its library: by its own context clause and use clauses, by
/// those of its primary unit, and by the context declarations that these name. Names are folded.
class TVisibleNames {
public:
    /// Keeps `index`, not a copy.
    explicit TVisibleNames(const TUnitIndex& index) : Index(index) {}

    /// The unit that is asked about from now on.
    void SetUnit(TUnitPlace unit);

    const std::unordered_set<std::string>& GetLibraries();
    /// The primary unit that is meant by a name alone, because a use clause makes it visible.
    std::optional<TUnitPlace> FindUnit(const std::string& name);

private:
    void Gather();
    void GatherFrom(TUnitPlace place);
    void GatherUse(const TUnitNeed& use, const std::string& library);
    void VisitLater(const std::optional<TUnitPlace>& place);

    const TUnitIndex& Index;
    TUnitPlace Asked;
    bool IsGathered = false;  // most units need no answer
    std::unordered_set<std::string> Libraries;
    std::unordered_map<std::string, std::string> UsedUnits;  // with their libraries
    std::unordered_set<std::string> WholeLibraries;          // in use clauses
    std::vector<TUnitPlace> Pending;
    std::unordered_set<std::uint64_t> Visited;
};
