#include "flows/linking/visiblenames.h"
#include "flows/scan/vhdlnames.h"

void TVisibleNames::SetUnit(TUnitPlace unit) {
    Asked = unit;
    IsGathered = false;
}

const std::unordered_set<std::string>& TVisibleNames::GetLibraries() {
    Gather();
    return Libraries;
}

std::optional<TUnitPlace> TVisibleNames::FindUnit(const std::string& name) {
    Gather();
    if (const auto used = UsedUnits.find(name); used != UsedUnits.end())
        if (const auto unit = Index.FindPrimary(used->second, name, Asked.File)) return unit;
    for (const std::string& library : WholeLibraries)
        if (const auto unit = Index.FindPrimary(library, name, Asked.File)) return unit;
    return std::nullopt;
}

void TVisibleNames::Gather() {
    if (IsGathered) return;
    IsGathered = true;
    Libraries = {"std"};
    UsedUnits.clear();
    WholeLibraries.clear();
    Visited.clear();
    VisitLater(Asked);
    while (!Pending.empty()) {
        const TUnitPlace place = Pending.back();
        Pending.pop_back();
        GatherFrom(place);
    }
}

void TVisibleNames::VisitLater(const std::optional<TUnitPlace>& place) {
    if (place && Visited.insert(std::uint64_t{place->File} << 32 | place->Unit).second)
        Pending.push_back(*place);
}

void TVisibleNames::GatherFrom(TUnitPlace place) {
    const TDesignUnit& unit = UnitAt(Index.GetFiles(), place);
    const std::string& own = Index.LibraryOf(place.File);
    for (const std::string& library : unit.Libraries) Libraries.insert(FoldVhdlName(library));
    if (!unit.Primary.empty())
        VisitLater(Index.FindPrimary(own, FoldVhdlName(unit.Primary), place.File));
    for (const TUnitNeed& need : unit.Needs) {
        if (need.Kind != TNeedKind::Use && need.Kind != TNeedKind::Context) continue;
        std::string library = FoldVhdlName(need.Library);
        if (library == "work") library = own;
        if (need.Kind == TNeedKind::Use)
            GatherUse(need, library);
        else
            VisitLater(Index.FindPrimary(library, FoldVhdlName(need.Unit), place.File));
    }
}

void TVisibleNames::GatherUse(const TUnitNeed& use, const std::string& library) {
    if (use.Unit.empty())
        WholeLibraries.insert(library);
    else
        UsedUnits.try_emplace(FoldVhdlName(use.Unit), library);
}
