#include "flows/check/scandiagnostics.h"
#include "flows/knownnames.h"
#include "projectfiles/ihdlsourcefile.h"
#include "services/hdl/hdllanguagetable.h"
#include "services/names/isfilename.h"
#include <unordered_map>
#include <utility>

namespace {

using TTold = TScanDiagnostic;
using TAllTold = std::vector<TTold>;

TTold Tell(TDiagnosticCode code, const TDiagnosticSource& source, std::vector<std::string> names,
           TJson json) {
    return {{code, std::move(names), {}, kNoXMLPlace, source}, std::move(json)};
}

std::string KindOf(const TToldScan& told, TUnitPlace unit) {
    return GetDesignUnitKindName(UnitAt(told.Scan.GetFiles(), unit).Kind);
}

TJson UnitAsJson(const TToldScan& told, TUnitPlace unit) {
    return {
        {"unit", told.NameOf(unit)}, {"kind", KindOf(told, unit)}, {"place", told.PlaceOf(unit)}};
}

TAllTold FindUnread(const TToldScan& told) {
    TAllTold all;
    const std::vector<std::string>& reasons = told.Scan.GetReasons();
    for (std::size_t i = 0; i < reasons.size(); ++i)
        if (!reasons[i].empty())
            all.push_back(Tell(DIAGNOSTIC_UNREAD_SOURCE, {told.PathOf(i)}, {reasons[i]},
                               {{"path", told.PathOf(i)}, {"reason", reasons[i]}}));
    return all;
}

TAllTold FindRepeated(const TToldScan& told) {
    TAllTold all;
    for (const TRepeatedUnit& repeated : told.Scan.GetDesign().Repeated) {
        const TUnitPlace first = repeated.Places.front();
        TJson places = TJson::Array();
        std::vector<std::string> others;
        for (const TUnitPlace place : repeated.Places) {
            places.Add(told.PlaceOf(place));
            if (!(place == first)) others.push_back(told.PlaceOf(place));
        }
        all.push_back(Tell(DIAGNOSTIC_REPEATED_UNIT, told.SourceOf(first),
                           {KindOf(told, first), told.NameOf(first), JoinNames(others)},
                           {{"unit", told.NameOf(first)},
                            {"kind", KindOf(told, first)},
                            {"places", std::move(places)}}));
    }
    return all;
}

std::string CountText(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " need" : " needs");
}

TAllTold FindMissing(const TToldScan& told, bool isComponent) {
    TAllTold all;
    for (const TMissingUnit& missing : told.Scan.GetDesign().Missing) {
        if (missing.IsComponent != isComponent) continue;
        std::string name = isComponent ? missing.Unit : missing.Library + "." + missing.Unit;
        if (!missing.Secondary.empty()) name += "(" + missing.Secondary + ")";
        const TDiagnosticSource place = told.SourceOf(missing.First);
        all.push_back(Tell(isComponent ? DIAGNOSTIC_UNBOUND_COMPONENT : DIAGNOSTIC_MISSING_UNIT,
                           place, {name, CountText(missing.Count)},
                           {{"unit", name},
                            {"place", GetSourcePlaceText(place)},
                            {"needs", static_cast<int>(missing.Count)}}));
    }
    return all;
}

TAllTold FindMissingUnits(const TToldScan& told) {
    return FindMissing(told, false);
}

TAllTold FindUnbound(const TToldScan& told) {
    return FindMissing(told, true);
}

/// Each name once, where it is included first. An include that conditions may leave out is no
/// fault.
TAllTold FindMissingIncludes(const TToldScan& told) {
    struct TMissingInclude {
        TDiagnosticSource Place;
        std::string Name;
        int Count;
    };
    std::vector<TMissingInclude> missing;
    std::unordered_map<std::string, std::size_t> numbers;
    const TDesignFiles& files = told.Scan.GetFiles();
    for (std::uint32_t file = 0; file < files.size(); ++file)
        for (const TScannedInclude& include : files[file].Scan.Includes) {
            if (!include.IsCertain || !include.Path.empty()) continue;
            const auto [number, isNew] = numbers.try_emplace(include.Name, missing.size());
            if (isNew) missing.push_back({told.SourceOf(file, include.Place), include.Name, 0});
            ++missing[number->second].Count;
        }
    TAllTold all;
    for (const TMissingInclude& one : missing)
        all.push_back(Tell(
            DIAGNOSTIC_MISSING_INCLUDE, one.Place,
            {one.Name, std::to_string(one.Count) + (one.Count == 1 ? " include" : " includes")},
            {{"file", one.Name},
             {"place", GetSourcePlaceText(one.Place)},
             {"includes", one.Count}}));
    return all;
}

TAllTold FindElsewhere(const TToldScan& told) {
    TAllTold all;
    for (const TUnitElsewhere& elsewhere : told.Scan.GetDesign().Elsewhere) {
        const TDiagnosticSource place = told.SourceOf(elsewhere.First);
        const std::string path = told.PathOf(elsewhere.Unit.File);
        const std::string& library = told.Scan.GetFiles()[elsewhere.Unit.File].Library;
        const std::string& name = UnitAt(told.Scan.GetFiles(), elsewhere.Unit).Name;
        all.push_back(Tell(DIAGNOSTIC_UNIT_ELSEWHERE, place,
                           {elsewhere.Library + "." + name, path, library, elsewhere.Library},
                           {{"path", path},
                            {"library", library},
                            {"wantedLibrary", elsewhere.Library},
                            {"unit", name},
                            {"place", GetSourcePlaceText(place)}}));
    }
    return all;
}

TAllTold FindLacking(const TToldScan& told) {
    TAllTold all;
    for (const TDependencyDifference& difference : told.Scan.GetDifferences())
        for (const TLinkedFile& linked : difference.Lacking) {
            const TDiagnosticSource place = told.SourceOf(linked.Need);
            const std::string name = told.NameOf(linked.Need);
            all.push_back(Tell(DIAGNOSTIC_LACKING_DEPENDENCY, place,
                               {told.PathOf(difference.Source), told.PathOf(linked.File), name},
                               {{"path", told.PathOf(difference.Source)},
                                {"dependency", told.PathOf(linked.File)},
                                {"need", name},
                                {"place", GetSourcePlaceText(place)}}));
        }
    return all;
}

TAllTold FindUnexplained(const TToldScan& told) {
    TAllTold all;
    for (const TDependencyDifference& difference : told.Scan.GetDifferences())
        for (const IHdlSourceFile* const dependency : difference.Unexplained) {
            const std::string path = told.PathOf(difference.Source);
            const std::string on = PathText(dependency->GetFileName(), told.Paths);
            all.push_back(Tell(DIAGNOSTIC_UNEXPLAINED_DEPENDENCY, {path}, {on},
                               {{"path", path}, {"dependency", on}}));
        }
    return all;
}

TAllTold FindLate(const TToldScan& told) {
    TAllTold all;
    for (const TLateSource& late : told.Late) {
        const std::string path = PathText(late.Source->GetFileName(), told.Paths);
        const std::string user = PathText(late.User->GetFileName(), told.Paths);
        all.push_back(
            Tell(DIAGNOSTIC_LATE_SOURCE, {path}, {user}, {{"path", path}, {"neededBy", user}}));
    }
    return all;
}

TAllTold FindUnits(const TToldScan& told, const std::vector<TUnitPlace>& units,
                   TDiagnosticCode code) {
    TAllTold all;
    for (const TUnitPlace unit : units)
        all.push_back(Tell(code, told.SourceOf(unit), {KindOf(told, unit), told.NameOf(unit)},
                           UnitAsJson(told, unit)));
    return all;
}

TAllTold FindForeign(const TToldScan& told) {
    TAllTold all;
    for (const TForeignNeed& foreign : told.Scan.GetDesign().Foreign) {
        const TDiagnosticSource place = told.SourceOf(foreign.Need);
        const std::string path = told.PathOf(foreign.Unit.File);
        all.push_back(Tell(DIAGNOSTIC_FOREIGN_NEED, place,
                           {KindOf(told, foreign.Unit), told.NameOf(foreign.Unit), path},
                           {{"unit", told.NameOf(foreign.Unit)},
                            {"path", path},
                            {"place", GetSourcePlaceText(place)}}));
    }
    return all;
}

TAllTold FindUnneeded(const TToldScan& told) {
    return FindUnits(told, told.Scan.GetDesign().Unneeded, DIAGNOSTIC_UNNEEDED_UNIT);
}

TAllTold FindTops(const TToldScan& told) {
    return FindUnits(told, told.Scan.GetDesign().TopCandidates, DIAGNOSTIC_TOP_CANDIDATE);
}

constexpr TScanDiagnosticKind kKinds[] = {
    {"unread", FindUnread},
    {"repeatedUnits", FindRepeated},
    {"missingIncludes", FindMissingIncludes},
    {"missingUnits", FindMissingUnits},
    {"wantedInOtherLibraries", FindElsewhere},
    {"lacking", FindLacking},
    {"unexplained", FindUnexplained},
    {"lateSources", FindLate},
    {"unboundComponents", FindUnbound},
    {"otherLanguages", FindForeign},
    {"unneededUnits", FindUnneeded},
    {"topCandidates", FindTops},
};

}  // namespace

std::span<const TScanDiagnosticKind> GetScanDiagnosticKinds() {
    return kKinds;
}

std::vector<TDiagnostic> DiagnoseScan(const TToldScan& told, const TScanRepairs& repairs) {
    const auto isRepaired = [&](const TDiagnostic& diagnostic) {
        return (diagnostic.Code == DIAGNOSTIC_LACKING_DEPENDENCY && repairs.Lacking) ||
               (diagnostic.Code == DIAGNOSTIC_UNEXPLAINED_DEPENDENCY && repairs.Unexplained) ||
               (diagnostic.Code == DIAGNOSTIC_LATE_SOURCE && repairs.Late);
    };
    std::vector<TDiagnostic> diagnostics;
    for (const TScanDiagnosticKind& kind : kKinds)
        for (TScanDiagnostic& one : kind.Find(told))
            if (!isRepaired(one.Diagnostic)) diagnostics.push_back(std::move(one.Diagnostic));
    return diagnostics;
}
