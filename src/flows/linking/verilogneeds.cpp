#include "flows/linking/needlinker.h"
#include "flows/scan/vhdlnames.h"

namespace {

/// Where the unit of a need is looked for, the likelier names first.
std::vector<TVerilogNames> NamesOf(TNeedKind kind) {
    switch (kind) {
        case TNeedKind::Import:
            return {TVerilogNames::Packages};
        case TNeedKind::Scope:
            return {TVerilogNames::Packages, TVerilogNames::Classes};
        case TNeedKind::Extends:
        case TNeedKind::Class:
            return {TVerilogNames::Classes};
        default:
            return {TVerilogNames::Definitions};
    }
}

/// Whether the need is in vain without a unit. A type may be anything, and what an instance is
/// bound into may be an instance itself.
bool MustBeFound(const TUnitNeed& need) {
    return need.IsCertain && need.Kind != TNeedKind::Class && need.Kind != TNeedKind::Bind &&
           need.Kind != TNeedKind::Interface && need.Unit != "std";
}

}  // namespace

// A library map or configuration may name a library; else a unit is looked for in the file's own
// one, then in all.
void TNeedLinker::LinkVerilogNeed(const TNeedPlace& place) {
    const TUnitNeed& need = NeedAt(Files, place);
    const std::uint32_t file = place.Unit.File;
    const std::string library =
        need.Library.empty() ? Index.LibraryOf(file) : FoldVhdlName(need.Library);
    for (const TVerilogNames names : NamesOf(need.Kind))
        if (const auto target = Index.FindVerilog(names, library, need.Unit, file)) {
            Keep(*target, place);
            MarkNeeded(*target, place);
            if (GetNeedRule(need.Kind).OrdersFiles) Depend(target->File, place);
            return;
        }
    const bool isInstance = NamesOf(need.Kind).front() == TVerilogNames::Definitions;
    const TUnitIndex::TUnits& entities = Index.FindInAllLibraries(FoldVhdlName(need.Unit));
    if (isInstance && !entities.empty())
        NoteForeign(entities.front(), place);
    else if (MustBeFound(need))
        Miss(place, false);
}

/// An instance in VHDL may be one of a module.
bool TNeedLinker::LinkForeign(const TNeedPlace& place) {
    const TUnitNeed& need = NeedAt(Files, place);
    if (!GetNeedRule(need.Kind).IsInstantiation) return false;
    const auto module = Index.FindModule(FoldVhdlName(need.Unit));
    if (module) NoteForeign(*module, place);
    return module.has_value();
}

/// Once for each file and unit.
void TNeedLinker::NoteForeign(TUnitPlace target, const TNeedPlace& place) {
    Keep(target, place);
    MarkNeeded(target, place);
    const std::string key =
        std::to_string(place.Unit.File) + " " + std::to_string(NumberOf(target));
    if (KnownForeign.insert(key).second) Design.Foreign.push_back({target, place});
}
