#include "flows/scan/verilogunits.h"
#include <algorithm>
#include <array>
#include <utility>

TVerilogUnits::TVerilogUnits(TVerilogPreprocessor* source, TScannedFile* file)
    : Source(*source), File(*file) {}

std::size_t TVerilogUnits::Begin(TDesignUnitKind kind, const TVerilogToken& name) {
    TDesignUnit unit{};
    unit.Kind = kind;
    unit.Name = Source.NameOf(name);
    unit.IsCertain = name.IsCertain;
    const std::string key = std::string(1, static_cast<char>(kind)) + unit.Name;
    const auto [entry, isNew] = Numbers.try_emplace(key, File.Units.size());
    if (!isNew) {
        TDesignUnit& before = File.Units[entry->second];
        const bool isSame = !before.IsCertain || !unit.IsCertain;
        before.IsCertain = before.IsCertain || unit.IsCertain;
        if (isSame) return entry->second;
        entry->second = File.Units.size();
    }
    unit.Place = Source.PlaceOf(name);
    File.Units.push_back(std::move(unit));
    return File.Units.size() - 1;
}

void TVerilogUnits::Declare(const TVerilogToken& name) {
    Declared.insert(Source.NameOf(name));
}

void TVerilogUnits::ImportAll(std::size_t unit) {
    Importing.insert(unit);
}

void TVerilogUnits::Add(std::size_t unit, TNeedKind kind, const TVerilogToken& name, bool isCertain,
                        const TVerilogToken* library) {
    isCertain = isCertain && name.IsCertain;
    TVerilogNeedSet::TKey key;
    key.Unit = static_cast<std::uint32_t>(unit);
    key.Kind = static_cast<std::uint32_t>(kind) * 2;
    key.Library = Known.NumberOf(library ? library->Text : std::string_view());
    key.Name = Known.NumberOf(name.Text);
    if (Known.Contains(key)) return;
    if (!isCertain) {
        ++key.Kind;
        if (Known.Contains(key)) return;
    }
    Known.Insert(key);
    std::vector<TUnitNeed>& needs = unit == kFile ? File.Needs : File.Units[unit].Needs;
    needs.push_back({kind, isCertain, library ? Source.NameOf(*library) : "", Source.NameOf(name),
                     "", Source.PlaceOf(name)});
}

void TVerilogUnits::AddUnlessDeclared(std::size_t unit, TNeedKind kind, const TVerilogToken& name,
                                      bool isCertain) {
    // The package that is always there, and its classes.
    constexpr std::array<std::string_view, 4> kStandard = {"std", "process", "mailbox",
                                                           "semaphore"};
    if (std::find(kStandard.begin(), kStandard.end(), name.Text) != kStandard.end()) return;
    if (Declared.find(name.Text) != Declared.end()) return;
    const bool mayBeImported =
        Source.MissesIncludes() || Importing.contains(unit) || Importing.contains(kFile);
    Add(unit, kind, name, isCertain && !mayBeImported);
}
