#include "flows/linking/needlinker.h"
#include "flows/scan/vhdlnames.h"
#include <utility>

namespace {

constexpr const char* kStandardLibraries[] = {"std", "ieee", "synopsys", "vital", "psl"};
constexpr const char* kWork = "work";
constexpr auto kElsewhere = static_cast<std::size_t>(-1);  // in place of a missing unit

bool MayBeTopLevel(const TDesignUnit& unit) {
    return unit.Kind == TDesignUnitKind::Entity || unit.Kind == TDesignUnitKind::Module ||
           unit.Kind == TDesignUnitKind::Program;
}

/// Whether the unit is of use by itself: nobody has to name it.
bool IsSecondary(const TDesignUnit& unit) {
    return unit.Kind == TDesignUnitKind::Architecture ||
           unit.Kind == TDesignUnitKind::PackageBody || unit.Kind == TDesignUnitKind::Verification;
}

}  // namespace

TNeedLinker::TNeedLinker(const TDesignFiles& files, const TLinkOptions& options)
    : Files(files),
      Index(files),
      Visible(Index),
      External(std::begin(kStandardLibraries), std::end(kStandardLibraries)),
      KeepsUnits(options.KeepsUnits) {
    for (const std::string& library : options.ExternalLibraries)
        External.insert(FoldVhdlName(library));
}

TLinkedDesign TNeedLinker::Link() {
    std::size_t units = 0;
    for (const TDesignFile& file : Files) {
        FirstUnits.push_back(units);
        units += file.Scan.Units.size();
    }
    Needed.assign(units, false);
    Instantiated.assign(units, false);
    LastUsers.assign(Files.size(), 0);
    Design.Dependencies.resize(Files.size());
    Design.Repeated = Index.ListRepeated();
    for (std::uint32_t file = 0; file < Files.size(); ++file) LinkFile(file);
    ListUnneeded();
    return std::move(Design);
}

void TNeedLinker::LinkFile(std::uint32_t file) {
    const TScannedFile& scan = Files[file].Scan;
    for (std::uint32_t unit = 0; unit < scan.Units.size(); ++unit) {
        Visible.SetUnit({file, unit});
        LinkNeeds({file, unit}, scan.Units[unit].Needs);
    }
    LinkNeeds({file, kOutsideUnits}, scan.Needs);
}

void TNeedLinker::LinkNeeds(TUnitPlace unit, const std::vector<TUnitNeed>& needs) {
    const bool isVhdl = Files[unit.File].Scan.Language == LANGUAGE_VHDL;
    for (std::uint32_t need = 0; need < needs.size(); ++need)
        if (isVhdl)
            LinkNeed({unit, need});
        else
            LinkVerilogNeed({unit, need});
}

void TNeedLinker::LinkNeed(TNeedPlace place) {
    const TUnitNeed& need = NeedAt(Files, place);
    if (need.Kind == TNeedKind::Component) {
        LinkComponent(place);
        return;
    }
    const TNamed named = NameOf(need, place.Unit.File);
    // The use of a whole library needs none of its units.
    if (named.Unit.empty()) return;
    if (const auto target = FindNamed(named, place))
        LinkTo(*target, place);
    else if (!LinkForeign(place) &&
             (!named.Library.empty() || GetNeedRule(need.Kind).IsInstantiation))
        Miss(place, false);
}

TNeedLinker::TNamed TNeedLinker::NameOf(const TUnitNeed& need, std::uint32_t file) {
    std::string library = FoldVhdlName(need.Library);
    std::string unit = FoldVhdlName(need.Unit);
    if (library.empty()) return {"", std::move(unit)};
    if (library == kWork) return {Index.LibraryOf(file), std::move(unit)};
    if (need.IsCertain || Visible.GetLibraries().contains(library))
        return {std::move(library), std::move(unit)};
    // Not a library: a package that the use of a whole library makes visible, or no unit at all.
    return {"", std::move(library)};
}

std::optional<TUnitPlace> TNeedLinker::FindNamed(const TNamed& named, const TNeedPlace& place) {
    const std::uint32_t file = place.Unit.File;
    if (!named.Library.empty()) return Index.FindPrimary(named.Library, named.Unit, file);
    if (const auto used = Visible.FindUnit(named.Unit)) return used;
    const TUnitNeed& need = NeedAt(Files, place);
    // A context declaration of an external library may have made the library visible.
    if (!need.Library.empty() && need.Kind != TNeedKind::Selected)
        return Index.FindPrimary(FoldVhdlName(need.Library), FoldVhdlName(need.Unit), file);
    // No compiler takes an instance of an entity that is not visible; the one meant is here.
    if (!GetNeedRule(need.Kind).IsInstantiation) return std::nullopt;
    return Index.FindPrimary(Index.LibraryOf(file), named.Unit, file);
}

void TNeedLinker::LinkTo(TUnitPlace target, const TNeedPlace& place) {
    const TUnitNeed& need = NeedAt(Files, place);
    const TNeedRule& rule = GetNeedRule(need.Kind);
    Keep(target, place);
    MarkNeeded(target, place);
    if (rule.OrdersFiles) Depend(target.File, place);
    const std::string& library = Index.LibraryOf(target.File);
    const std::string name = FoldVhdlName(UnitAt(Files, target).Name);
    if (rule.OrdersSecondary && !need.Secondary.empty()) {
        const auto architecture =
            Index.FindArchitecture(library, name, FoldVhdlName(need.Secondary), place.Unit.File);
        if (architecture) {
            Keep(*architecture, place);
            Depend(architecture->File, place);
        } else {
            Miss(place, true);
        }
    }
    if (!rule.OrdersBody) return;
    if (const auto body = Index.FindPackageBody(library, name, place.Unit.File)) {
        Keep(*body, place);
        Depend(body->File, place);
    }
}

// An entity of the component's name: in the file's own library or one that is visible, as default
// bindings look for it, else wherever there is one.
void TNeedLinker::LinkComponent(const TNeedPlace& place) {
    const std::uint32_t file = place.Unit.File;
    const std::string name = FoldVhdlName(NeedAt(Files, place).Unit);
    const TUnitIndex::TUnits& all = Index.FindInAllLibraries(name);
    if (all.empty()) {
        if (!LinkForeign(place)) Miss(place, false);
        return;
    }
    bool isFound = false;
    const auto look = [&](const std::string& library) {
        const auto entity = Index.FindPrimary(library, name, file);
        if (entity) {
            Keep(*entity, place);
            MarkNeeded(*entity, place);
        }
        isFound = isFound || entity.has_value();
    };
    const std::string& own = Index.LibraryOf(file);
    look(own);
    for (const std::string& library : Visible.GetLibraries())
        if (library != own) look(library);
    if (isFound) return;
    // Which one is meant nobody can tell.
    Keep(all.front(), place);
    if (!Anywhere.insert(name).second) return;
    for (const TUnitPlace entity : all) MarkNeeded(entity, place);
}

void TNeedLinker::Keep(TUnitPlace target, const TNeedPlace& place) {
    if (KeepsUnits) Design.Units.push_back({target, place});
}

void TNeedLinker::Depend(std::uint32_t file, const TNeedPlace& place) {
    const std::uint32_t user = place.Unit.File;
    if (file == user || LastUsers[file] == user + 1) return;
    LastUsers[file] = user + 1;
    Design.Dependencies[user].push_back({file, place});
}

/// Whether `unit` is `primary` or belongs to it.
bool TNeedLinker::IsOfUnit(TUnitPlace unit, TUnitPlace primary) const {
    if (unit == primary) return true;
    if (unit.Unit == kOutsideUnits) return false;
    const TDesignUnit& inner = UnitAt(Files, unit);
    return IsSecondary(inner) && Index.LibraryOf(unit.File) == Index.LibraryOf(primary.File) &&
           FoldVhdlName(inner.Primary) == FoldVhdlName(UnitAt(Files, primary).Name);
}

void TNeedLinker::MarkNeeded(TUnitPlace target, const TNeedPlace& place) {
    const TNeedKind kind = NeedAt(Files, place).Kind;
    const bool isConfigured = kind == TNeedKind::Primary || kind == TNeedKind::Architecture;
    if (isConfigured || IsOfUnit(place.Unit, target)) return;
    Needed[NumberOf(target)] = true;
    if (GetNeedRule(kind).IsInstantiation) MarkInstantiated(target);
}

void TNeedLinker::MarkInstantiated(TUnitPlace target) {
    Instantiated[NumberOf(target)] = true;
    const TDesignUnit& unit = UnitAt(Files, target);
    if (unit.Kind != TDesignUnitKind::Configuration) return;
    if (const auto entity = Index.FindPrimary(Index.LibraryOf(target.File),
                                              FoldVhdlName(unit.Primary), target.File))
        Instantiated[NumberOf(*entity)] = true;
}

void TNeedLinker::ListUnneeded() {
    for (std::uint32_t file = 0; file < Files.size(); ++file)
        for (std::uint32_t i = 0; i < Files[file].Scan.Units.size(); ++i) {
            const TUnitPlace place{file, i};
            const TDesignUnit& unit = UnitAt(Files, place);
            if (MayBeTopLevel(unit) && !Instantiated[NumberOf(place)])
                Design.TopCandidates.push_back(place);
            if (!MayBeTopLevel(unit) && !IsSecondary(unit) && !Needed[NumberOf(place)])
                Design.Unneeded.push_back(place);
        }
}

/// The library as the need names it, or as its file is compiled into.
const std::string& TNeedLinker::WrittenLibrary(const TNeedPlace& place) const {
    const TUnitNeed& need = NeedAt(Files, place);
    const bool isOwn = need.Library.empty() || IsVhdlWord(need.Library, kWork);
    return isOwn ? Files[place.Unit.File].Library : need.Library;
}

void TNeedLinker::Miss(const TNeedPlace& place, bool isArchitecture) {
    const TUnitNeed& need = NeedAt(Files, place);
    const std::string& written = WrittenLibrary(place);
    const std::string library = FoldVhdlName(written);
    if (External.contains(library) && !Index.HasLibrary(library)) return;
    const bool isComponent = need.Kind == TNeedKind::Component;
    const bool isVhdl = Files[place.Unit.File].Scan.Language == LANGUAGE_VHDL;
    const std::string unit = isVhdl ? FoldVhdlName(need.Unit) : need.Unit;
    const std::string secondary = isArchitecture ? need.Secondary : "";
    const std::string key = library + "\n" + unit + "\n" + FoldVhdlName(secondary) +
                            (isComponent ? "\ncomponent" : "\n");
    const auto [entry, isNew] = MissingByName.try_emplace(key, Design.Missing.size());
    if (isNew && isVhdl && !isComponent && !isArchitecture && NoteElsewhere(place, written, unit))
        entry->second = kElsewhere;
    else if (isNew)
        Design.Missing.push_back({written, need.Unit, secondary, place, 0, isComponent});
    if (entry->second != kElsewhere) ++Design.Missing[entry->second].Count;
}

bool TNeedLinker::NoteElsewhere(const TNeedPlace& place, const std::string& library,
                                const std::string& unit) {
    const TUnitIndex::TUnits& held = Index.FindInAllLibraries(unit);
    if (!held.empty()) Design.Elsewhere.push_back({held.front(), library, place});
    return !held.empty();
}
