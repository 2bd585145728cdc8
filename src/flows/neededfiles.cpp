#include "flows/neededfiles.h"
#include "flows/scan/asciicase.h"
#include "flows/scan/vhdlnames.h"
#include "projectfiles/ihdlsourcefile.h"
#include "services/names/isfilename.h"
#include <unordered_set>

namespace {

bool IsSecondary(TDesignUnitKind kind) {
    return kind == TDesignUnitKind::Architecture || kind == TDesignUnitKind::PackageBody;
}

bool IsForCompile(const TFileNeed& need) {
    return need.IsRecorded || need.IsForCompile;
}

}  // namespace

TNeededFiles::TNeededFiles(const TBuildScan& scan, const TBuildNeeds& needs)
    : Scan(scan), Needs(needs), Sources(needs.GetFiles().size()) {
    std::unordered_map<const IHdlSourceFile*, std::uint32_t> numbers;
    for (std::uint32_t number = 0; number < needs.GetFiles().size(); ++number)
        numbers.emplace(needs.GetFiles()[number], number);
    std::size_t slots = 0;
    for (std::uint32_t source = 0; source < scan.GetSources().size(); ++source) {
        Numbers.push_back(numbers.at(scan.GetSources()[source].Source));
        Sources[Numbers.back()].push_back(source);
        FirstSlots.push_back(slots);
        slots += scan.GetFiles()[source].Scan.Units.size() + 1;
    }
    FirstSlots.push_back(slots);
    IsCompiled.resize(needs.GetFiles().size());
    IsElaborated.resize(slots);
    Secondaries.resize(slots);
    // The links are in the order of the slots.
    const std::vector<TLinkedUnit>& links = scan.GetDesign().Units;
    for (std::size_t link = 0; link < links.size(); ++link) {
        const TNeedPlace& need = links[link].Need;
        FirstLinks.resize(std::max(FirstLinks.size(), SlotOf(need.Unit) + 1), link);
        if (NeedAt(scan.GetFiles(), need).Kind == TNeedKind::Primary &&
            IsSecondary(UnitAt(scan.GetFiles(), need.Unit).Kind))
            Secondaries[SlotOf(links[link].Unit)].push_back(need.Unit);
    }
    FirstLinks.resize(slots + 1, links.size());
}

std::size_t TNeededFiles::SlotOf(TUnitPlace unit) const {
    return unit.Unit == kOutsideUnits ? FirstSlots[unit.File + 1] - 1
                                      : FirstSlots[unit.File] + unit.Unit;
}

std::vector<TUnitPlace> TNeededFiles::FindUnits(const TBuildTop& name) const {
    const TDesignFiles& files = Scan.GetFiles();
    const bool isVhdl = name.Language == LANGUAGE_VHDL;
    const std::string library = FoldVhdlName(name.Library);
    // A scan has no blank at the end of an escaped name.
    std::string entity = name.Entity;
    while (!isVhdl && entity.ends_with(' ')) entity.pop_back();
    const std::string wanted = isVhdl ? FoldVhdlName(entity) : entity;
    std::vector<TUnitPlace> found;
    std::unordered_set<std::string> libraries;
    for (std::uint32_t file = 0; file < files.size(); ++file) {
        if (files[file].Scan.Language != name.Language) continue;
        const std::string own = FoldVhdlName(files[file].Library);
        if (!library.empty() && own != library) continue;
        const std::vector<TDesignUnit>& units = files[file].Scan.Units;
        for (std::uint32_t i = 0; i < units.size(); ++i) {
            const bool isNamed = (isVhdl ? FoldVhdlName(units[i].Name) : units[i].Name) == wanted;
            if (isNamed && !IsSecondary(units[i].Kind) &&
                units[i].Kind != TDesignUnitKind::Verification && libraries.insert(own).second)
                found.push_back({file, i});
        }
    }
    return found;
}

std::vector<TUnitPlace> TNeededFiles::GetSecondaries(TUnitPlace unit) const {
    return Secondaries[SlotOf(unit)];
}

void TNeededFiles::Add(const TWantedTop& top) {
    ElaborateWhole(top.Unit, top.Architecture);
    Follow();
}

void TNeededFiles::AddSource(std::uint32_t source) {
    Compile(NumberOf(source));
    const std::size_t units = Scan.GetFiles()[source].Scan.Units.size();
    for (std::uint32_t unit = 0; unit < units; ++unit) Elaborate({source, unit});
    Elaborate({source, kOutsideUnits});
    Follow();
}

void TNeededFiles::Follow() {
    while (!FilesToFollow.empty() || !UnitsToFollow.empty())
        if (!UnitsToFollow.empty()) {
            const TUnitPlace unit = UnitsToFollow.back();
            UnitsToFollow.pop_back();
            FollowUnit(unit);
        } else {
            const std::uint32_t file = FilesToFollow.back();
            FilesToFollow.pop_back();
            FollowFile(file);
        }
}

void TNeededFiles::Compile(std::uint32_t file) {
    if (IsCompiled[file]) return;
    IsCompiled[file] = true;
    FilesToFollow.push_back(file);
}

void TNeededFiles::Elaborate(TUnitPlace unit) {
    const std::size_t slot = SlotOf(unit);
    if (IsElaborated[slot]) return;
    IsElaborated[slot] = true;
    UnitsToFollow.push_back(unit);
    Compile(NumberOf(unit.File));
    // What stands outside of units belongs to all of them.
    if (unit.Unit != kOutsideUnits) Elaborate({unit.File, kOutsideUnits});
}

void TNeededFiles::ElaborateWhole(TUnitPlace unit, const std::string& architecture) {
    Elaborate(unit);
    const std::string wanted = FoldVhdlName(architecture);
    for (const TUnitPlace secondary : Secondaries[SlotOf(unit)])
        if (wanted.empty() || FoldVhdlName(UnitAt(Scan.GetFiles(), secondary).Name) == wanted)
            Elaborate(secondary);
}

void TNeededFiles::FollowFile(std::uint32_t file) {
    for (const TFileNeed& need : Needs.GetNeeds(file))
        if (IsForCompile(need)) Compile(need.File);
}

void TNeededFiles::FollowUnit(TUnitPlace unit) {
    const std::vector<TLinkedUnit>& links = Scan.GetDesign().Units;
    const std::size_t slot = SlotOf(unit);
    for (std::size_t link = FirstLinks[slot]; link < FirstLinks[slot + 1]; ++link)
        FollowLink(links[link]);
}

void TNeededFiles::FollowLink(const TLinkedUnit& link) {
    const TUnitNeed& need = NeedAt(Scan.GetFiles(), link.Need);
    // A secondary unit is there already, and a configuration names the architecture.
    const bool isPart = need.Kind == TNeedKind::Primary || need.Kind == TNeedKind::Architecture ||
                        IsSecondary(UnitAt(Scan.GetFiles(), link.Unit).Kind);
    if (isPart)
        Elaborate(link.Unit);
    else
        ElaborateWhole(link.Unit, need.Secondary);
}

std::vector<std::uint32_t> TNeededFiles::ListInOrder(bool* isCyclic) const {
    TFileGraph graph(IsCompiled.size());
    std::vector<std::uint32_t> wanted;
    for (std::uint32_t file = 0; file < graph.size(); ++file) {
        if (!IsCompiled[file]) continue;
        wanted.push_back(file);
        for (const TFileNeed& need : Needs.GetNeeds(file))
            if (IsForCompile(need)) graph[file].push_back(need.File);
    }
    std::vector<std::uint32_t> order = ListReached(graph, wanted);
    std::vector<bool> isListed(graph.size());
    *isCyclic = false;
    for (const std::uint32_t file : order) {
        for (const std::uint32_t needed : graph[file])
            if (!isListed[needed]) *isCyclic = true;
        isListed[file] = true;
    }
    return order;
}
