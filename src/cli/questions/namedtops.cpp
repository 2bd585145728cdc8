#include "cli/questions/namedtops.h"
#include "flows/knownnames.h"
#include "flows/nearestnames.h"
#include "flows/scan/vhdlnames.h"
#include "flows/toptexts.h"
#include <algorithm>

namespace {

// As many that may be top level are told.
constexpr std::size_t kMostTopsNamed = 10;

/// A unit that a name may mean.
struct TCandidate {
    TUnitPlace Unit;
    TBuildTop Name;  ///< as it was read
};

std::string LanguageOf(TUnitPlace unit, const TToldScan& told) {
    return GetStringFromHdlLanguage(told.Scan.GetFiles()[unit.File].Scan.Language);
}

/// "no source holds 'tpo'; nearest: work.top; may be top level: work.top, work.tb".
std::string NoUnit(const std::string& text, const TNamedTop& read, const TToldScan& told) {
    const TDesignFiles& files = told.Scan.GetFiles();
    std::vector<std::string> known;
    for (std::uint32_t file = 0; file < files.size(); ++file)
        for (std::uint32_t unit = 0; unit < files[file].Scan.Units.size(); ++unit) {
            const TDesignUnitKind kind = files[file].Scan.Units[unit].Kind;
            if (kind == TDesignUnitKind::Architecture || kind == TDesignUnitKind::PackageBody)
                continue;
            known.push_back(read.HasLibrary ? told.NameOf(TUnitPlace{file, unit})
                                            : files[file].Scan.Units[unit].Name);
        }
    const std::string wanted =
        read.HasLibrary ? read.Top.Library + "." + read.Top.Entity : read.Top.Entity;
    const std::string nearest = JoinChoices(NearestNames(wanted, known));
    const std::vector<TUnitPlace>& tops = told.Scan.GetDesign().TopCandidates;
    std::vector<std::string> named;
    for (std::size_t i = 0; i < std::min(tops.size(), kMostTopsNamed); ++i)
        named.push_back(told.NameOf(tops[i]));
    if (tops.size() > kMostTopsNamed)
        named.push_back(std::to_string(tops.size() - kMostTopsNamed) + " more");
    return "no source holds '" + text + "'" + (nearest.empty() ? "" : "; nearest: " + nearest) +
           (named.empty() ? "" : "; may be top level: " + JoinNames(named));
}

std::string Several(const std::string& text, const std::vector<TCandidate>& candidates,
                    const TToldScan& told) {
    std::vector<std::string> names;
    names.reserve(candidates.size());
    for (const TCandidate& candidate : candidates)
        names.push_back(LanguageOf(candidate.Unit, told) + " " + told.NameOf(candidate.Unit));
    return "'" + text + "' may be " + JoinChoices(names) + ": name the library or the language";
}

/// Leaves those of that library, unless it has none of them.
void Prefer(const std::string& library, const TToldScan& told,
            std::vector<TCandidate>* candidates) {
    std::vector<TCandidate> preferred;
    for (const TCandidate& candidate : *candidates)
        if (FoldVhdlName(told.Scan.GetFiles()[candidate.Unit.File].Library) ==
            FoldVhdlName(library))
            preferred.push_back(candidate);
    if (!preferred.empty()) *candidates = std::move(preferred);
}

/// Why the unit has no such architecture; "" when it has, and when none is named.
std::string ArchitectureComplaint(const TCandidate& candidate, const TNeededFiles& files,
                                  const TToldScan& told) {
    const std::string& wanted = candidate.Name.Architecture;
    if (wanted.empty()) return "";
    const TDesignUnit& unit = UnitAt(told.Scan.GetFiles(), candidate.Unit);
    const std::string name = told.NameOf(candidate.Unit);
    if (unit.Kind != TDesignUnitKind::Entity)
        return std::string(GetDesignUnitKindName(unit.Kind)) + " " + name + " has no architectures";
    std::vector<std::string> known;
    for (const TUnitPlace secondary : files.GetSecondaries(candidate.Unit)) {
        known.push_back(UnitAt(told.Scan.GetFiles(), secondary).Name);
        if (FoldVhdlName(known.back()) == FoldVhdlName(wanted)) return "";
    }
    return WithKnownNames(name + " has no architecture '" + wanted + "'", wanted, known);
}

}  // namespace

std::optional<TWantedTop> FindTop(const std::string& text, THdlLanguage language,
                                  const TNeededFiles& files, const TToldScan& told,
                                  const std::string& destinationLibrary,
                                  const TToolStreams& streams) {
    std::vector<TCandidate> candidates;
    std::optional<TNamedTop> read;  // the first that names a unit of some language, else the first
    bool hasLibrary = false;
    for (const THdlLanguage one : {LANGUAGE_VHDL, LANGUAGE_VERILOG}) {
        if (language != LANGUAGE_NONE && language != one) continue;
        const TNamedTop named = ReadTop(text, one);
        if (!read || (!read->Complaint.empty() && named.Complaint.empty())) read = named;
        if (!named.Complaint.empty()) continue;
        hasLibrary = hasLibrary || named.HasLibrary;
        for (const TUnitPlace unit : files.FindUnits(named.Top))
            candidates.push_back({unit, named.Top});
    }
    if (!hasLibrary) Prefer(destinationLibrary, told, &candidates);
    std::string complaint;
    if (!read)
        complaint =
            "sources in " + std::string(GetStringFromHdlLanguage(language)) + " are not scanned";
    else if (!read->Complaint.empty())
        complaint = read->Complaint;
    else if (candidates.empty())
        complaint = NoUnit(text, *read, told);
    else if (candidates.size() > 1)
        complaint = Several(text, candidates, told);
    else
        complaint = ArchitectureComplaint(candidates.front(), files, told);
    if (complaint.empty())
        return TWantedTop{candidates.front().Unit, candidates.front().Name.Architecture};
    ReportError(streams, complaint);
    return std::nullopt;
}
