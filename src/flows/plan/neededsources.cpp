#include "flows/plan/neededsources.h"
#include "buildfile/hdlbuildfile.h"
#include "flows/neededfiles.h"
#include "flows/plan/planoptions.h"
#include "flows/scan/vhdlnames.h"
#include "projectfiles/ihdlsourcefile.h"
#include "services/names/isfilename.h"
#include <algorithm>
#include <optional>
#include <unordered_set>

namespace {

std::string NameOf(const TBuildTop& top) {
    const std::string name = top.Library + "." + top.Entity;
    return top.Architecture.empty() ? name : name + "(" + top.Architecture + ")";
}

/// Whether others may need a file for more than its units.
bool IsBeyondScan(const TScannedFile& file) {
    const auto isVerification = [](const TDesignUnit& unit) {
        return unit.Kind == TDesignUnitKind::Verification;
    };
    const auto isBind = [](const TUnitNeed& need) { return need.Kind == TNeedKind::Bind; };
    return file.Units.empty() ||
           std::any_of(file.Units.begin(), file.Units.end(), isVerification) ||
           std::any_of(file.Needs.begin(), file.Needs.end(), isBind);
}

/// The paths of the sources that the top does not need; none when no source holds the top.
std::optional<std::unordered_set<std::string>> FindUnneeded(THdlBuildFile& build,
                                                            const TBuildTop& top) {
    const TBuildScan scan(build, {{}, true});
    TBuildNeeds needs(build);
    needs.Add(scan);
    TNeededFiles files(scan, needs);
    const std::optional<TUnitPlace> unit = FindTopUnit(files, scan, top);
    if (!unit) return std::nullopt;
    files.Add({*unit, top.Architecture});
    AddUnexplained(scan, &files);
    std::unordered_set<std::string> paths;
    for (std::uint32_t file = 0; file < needs.GetFiles().size(); ++file)
        if (!files.IsNeeded(file))
            paths.insert(WholePathOf(*needs.GetFiles()[file]->GetFileName()));
    return paths;
}

/// Takes out the sources with these paths; what others need of them is no need any more.
void TakeOut(const std::unordered_set<std::string>& paths, std::vector<TPlanSource>* sources) {
    std::vector<std::size_t> numbers(sources->size());  // behind it
    std::vector<TPlanSource> kept;
    kept.reserve(sources->size());
    for (std::size_t number = 0; number < sources->size(); ++number) {
        numbers[number] = kept.size();
        TPlanSource& source = (*sources)[number];
        if (!paths.contains(source.Path)) kept.push_back(std::move(source));
    }
    // One that is taken out has the number of the next one; nobody that stays needs it.
    for (TPlanSource& source : kept)
        for (std::size_t& need : source.Needs) need = numbers[need];
    *sources = std::move(kept);
}

}  // namespace

// People seldom name libraries of Verilog: where the one that is recorded has no such unit, the
// only one of that name is meant.
std::optional<TUnitPlace> FindTopUnit(const TNeededFiles& files, const TBuildScan& scan,
                                      const TBuildTop& top) {
    std::vector<TUnitPlace> units = files.FindUnits(top);
    if (units.empty() && top.Language == LANGUAGE_VERILOG)
        units = files.FindUnits({top.Language, "", top.Entity, ""});
    if (units.size() != 1) return std::nullopt;
    if (top.Language != LANGUAGE_VHDL || top.Architecture.empty()) return units.front();
    for (const TUnitPlace secondary : files.GetSecondaries(units.front()))
        if (FoldVhdlName(UnitAt(scan.GetFiles(), secondary).Name) == FoldVhdlName(top.Architecture))
            return units.front();
    return std::nullopt;
}

void AddUnexplained(const TBuildScan& scan, TNeededFiles* files) {
    for (std::uint32_t source = 0; source < scan.GetSources().size(); ++source)
        if (IsBeyondScan(scan.GetFiles()[source].Scan)) files->AddSource(source);
}

const TBuildTop* LeaveOutUnneeded(THdlBuildFile& build, const TBuildTop& top, TBuildPlan* plan) {
    const auto paths = FindUnneeded(build, top);
    if (!paths) {
        plan->Losses.push_back({DIAGNOSTIC_UNSCANNED_TOP, {NameOf(top)}});
        return &top;
    }
    const std::size_t count = plan->Sources.size();
    TakeOut(*paths, &plan->Sources);
    if (const std::size_t leftOut = count - plan->Sources.size(); leftOut > 0)
        plan->Losses.push_back(
            {DIAGNOSTIC_LEFT_OUT, {std::to_string(leftOut), std::to_string(count), NameOf(top)}});
    const TBuildTop kept = top;
    plan->Tops = {kept};
    std::erase_if(plan->Settings, [plan](const TPlanSettings& settings) {
        return std::none_of(plan->Sources.begin(), plan->Sources.end(), [&](const auto& source) {
            return source.Language == settings.Language;
        });
    });
    return &plan->Tops.front();
}
