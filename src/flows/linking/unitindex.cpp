#include "flows/linking/unitindex.h"
#include "flows/scan/vhdlnames.h"

namespace {

// Each kind of unit has its own names. No identifier holds a line end.
std::string KeyOf(char kind, const std::string& library, const std::string& unit,
                  const std::string& secondary = {}) {
    std::string key(1, kind);
    for (const std::string* name : {&library, &unit, &secondary}) (key += *name) += '\n';
    return key;
}

constexpr char kPrimary = 'p';
constexpr char kArchitecture = 'a';
constexpr char kBody = 'b';

std::string InFile(const std::string& key, std::uint32_t file) {
    return key + std::to_string(file);
}

}  // namespace

TUnitIndex::TUnitIndex(const TDesignFiles& files) : Files(files) {
    for (std::uint32_t file = 0; file < files.size(); ++file) {
        Libraries.push_back(FoldVhdlName(files[file].Library));
        KnownLibraries.insert(Libraries.back());
        for (std::uint32_t unit = 0; unit < files[file].Scan.Units.size(); ++unit)
            Add({file, unit});
    }
}

void TUnitIndex::Add(TUnitPlace place) {
    if (Files[place.File].Scan.Language != LANGUAGE_VHDL) {
        AddVerilog(place);
        return;
    }
    const TDesignUnit& unit = UnitAt(Files, place);
    const std::string& library = Libraries[place.File];
    const std::string name = FoldVhdlName(unit.Name);
    switch (unit.Kind) {
        case TDesignUnitKind::Architecture:
            AddNamed(KeyOf(kArchitecture, library, FoldVhdlName(unit.Primary), name), place);
            break;
        case TDesignUnitKind::PackageBody:
            AddNamed(KeyOf(kBody, library, name), place);
            break;
        default:
            AddNamed(KeyOf(kPrimary, library, name), place);
            ByName[name].push_back(place);
    }
}

void TUnitIndex::AddVerilog(TUnitPlace place) {
    const TDesignUnit& unit = UnitAt(Files, place);
    TVerilogNames names = TVerilogNames::Definitions;
    if (unit.Kind == TDesignUnitKind::Package) names = TVerilogNames::Packages;
    if (unit.Kind == TDesignUnitKind::Class) names = TVerilogNames::Classes;
    const char kind = static_cast<char>(names);
    AddNamed(KeyOf(kind, Libraries[place.File], unit.Name), place);
    FirstByName.try_emplace(KeyOf(kind, "", unit.Name), place);
    if (names == TVerilogNames::Definitions)
        ModulesByFoldedName.try_emplace(FoldVhdlName(unit.Name), place);
}

void TUnitIndex::AddNamed(const std::string& key, TUnitPlace place) {
    const auto [entry, isNew] = Entries.try_emplace(key, TEntry{place, kNone});
    if (isNew) return;
    const TUnitPlace first = entry->second.First;
    // Twice in one file is what conditions may leave in.
    if (entry->second.Repeated == kNone) {
        if (first.File == place.File) return;
        entry->second.Repeated = Repeated.size();
        Repeated.push_back({first});
        InTheirFiles.try_emplace(InFile(key, first.File), first);
    }
    if (InTheirFiles.try_emplace(InFile(key, place.File), place).second)
        Repeated[entry->second.Repeated].push_back(place);
}

std::optional<TUnitPlace> TUnitIndex::Find(const std::string& key, std::uint32_t askingFile) const {
    const auto entry = Entries.find(key);
    if (entry == Entries.end()) return std::nullopt;
    if (entry->second.Repeated != kNone)
        if (const auto own = InTheirFiles.find(InFile(key, askingFile)); own != InTheirFiles.end())
            return own->second;
    return entry->second.First;
}

std::optional<TUnitPlace> TUnitIndex::FindPrimary(const std::string& library,
                                                  const std::string& unit,
                                                  std::uint32_t askingFile) const {
    return Find(KeyOf(kPrimary, library, unit), askingFile);
}

std::optional<TUnitPlace> TUnitIndex::FindArchitecture(const std::string& library,
                                                       const std::string& entity,
                                                       const std::string& architecture,
                                                       std::uint32_t askingFile) const {
    return Find(KeyOf(kArchitecture, library, entity, architecture), askingFile);
}

std::optional<TUnitPlace> TUnitIndex::FindPackageBody(const std::string& library,
                                                      const std::string& package,
                                                      std::uint32_t askingFile) const {
    return Find(KeyOf(kBody, library, package), askingFile);
}

const TUnitIndex::TUnits& TUnitIndex::FindInAllLibraries(const std::string& unit) const {
    static const TUnits kNobody;
    const auto found = ByName.find(unit);
    return found == ByName.end() ? kNobody : found->second;
}

std::optional<TUnitPlace> TUnitIndex::FindVerilog(TVerilogNames names, const std::string& library,
                                                  const std::string& unit,
                                                  std::uint32_t askingFile) const {
    const char kind = static_cast<char>(names);
    if (const auto own = Find(KeyOf(kind, library, unit), askingFile)) return own;
    const auto first = FirstByName.find(KeyOf(kind, "", unit));
    return first == FirstByName.end() ? std::nullopt : std::optional(first->second);
}

std::optional<TUnitPlace> TUnitIndex::FindModule(const std::string& foldedName) const {
    const auto found = ModulesByFoldedName.find(foldedName);
    return found == ModulesByFoldedName.end() ? std::nullopt : std::optional(found->second);
}

std::vector<TRepeatedUnit> TUnitIndex::ListRepeated() const {
    std::vector<TRepeatedUnit> list;
    for (const TUnits& places : Repeated) {
        TRepeatedUnit repeated;
        for (const TUnitPlace place : places) {
            const TDesignUnit& unit = UnitAt(Files, place);
            if (unit.IsCertain && unit.Place.Include == 0) repeated.Places.push_back(place);
        }
        if (repeated.Places.size() > 1) list.push_back(std::move(repeated));
    }
    return list;
}
