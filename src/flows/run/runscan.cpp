#include "flows/run/runscan.h"
#include "flows/buildneeds.h"
#include "flows/buildscan.h"
#include "flows/neededfiles.h"
#include "flows/plan/neededsources.h"
#include "flows/plan/planoptions.h"
#include "projectfiles/ihdlsourcefile.h"
#include "services/names/isfilename.h"
#include <algorithm>
#include <numeric>
#include <set>
#include <unordered_map>

namespace {

std::string PathOf(const IHdlSourceFile& source) {
    return source.GetFileName() ? WholePath(source.GetFileName()->Canonical(false), "/")
                                : std::string();
}

/// What a scan of the build tells of the sources and tops of its plan.
class TPlanScan {
public:
    TPlanScan(THdlBuildFile& build, const TBuildPlan& plan)
        : Plan(plan), Scan(build, TLinkOptions{{}, true}), Needs(build) {
        Needs.Add(Scan);
        for (std::size_t number = 0; number < plan.Sources.size(); ++number)
            Numbers[plan.Sources[number].Path].push_back(number);
    }

    TRunScan Tell() {
        TRunScan result;
        result.Includes.resize(Plan.Sources.size());
        result.Needs.resize(Plan.Sources.size());
        AddIncludes(&result);
        AddNeeds(&result);
        for (const TBuildTop& top : Plan.Tops) AddTop(top, &result);
        return result;
    }

private:
    /// Of the sources of the plan that are this one: two when two languages list it.
    const std::vector<std::size_t>& NumbersOf(const IHdlSourceFile& source) {
        return Numbers[PathOf(source)];
    }

    void AddIncludes(TRunScan* result) {
        for (std::size_t file = 0; file < Scan.GetSources().size(); ++file)
            for (const std::size_t number : NumbersOf(*Scan.GetSources()[file].Source))
                for (const TScannedInclude& include : Scan.GetFiles()[file].Scan.Includes)
                    if (!include.Path.empty())
                        result->Includes[number].push_back(WholePath(include.Path, Plan.Folder));
    }

    // Without what the texts tell, a build that records an order alone would not analyse again
    // what depends on a changed package.
    void AddNeeds(TRunScan* result) {
        for (std::uint32_t file = 0; file < Needs.GetFiles().size(); ++file)
            for (const TFileNeed& need : Needs.GetNeeds(file)) {
                if (!need.IsRecorded && !need.IsForCompile) continue;
                const std::vector<std::size_t>& needed = NumbersOf(*Needs.GetFiles()[need.File]);
                for (const std::size_t number : NumbersOf(*Needs.GetFiles()[file]))
                    for (const std::size_t former : needed)
                        if (former < number) result->Needs[number].push_back(former);
            }
        for (std::vector<std::size_t>& needs : result->Needs) SortOnce(&needs);
    }

    void AddTop(const TBuildTop& top, TRunScan* result) {
        TNeededFiles files(Scan, Needs);
        for (const TUnitPlace unit : files.FindUnits(top)) files.Add({unit, top.Architecture});
        result->OtherLanguages.push_back(ListOtherLanguages(top, files));
        result->TopNeeds.push_back(ListNeeded(top, &files));
    }

    std::vector<THdlLanguage> ListOtherLanguages(const TBuildTop& top, const TNeededFiles& files) {
        std::set<THdlLanguage> languages;
        for (std::uint32_t file = 0; file < Needs.GetFiles().size(); ++file)
            if (files.IsNeeded(file)) languages.insert(Needs.GetGroup(file));
        languages.erase(top.Language);
        languages.erase(LANGUAGE_NONE);
        return {languages.begin(), languages.end()};
    }

    std::vector<std::size_t> ListNeeded(const TBuildTop& top, TNeededFiles* files) {
        std::vector<std::size_t> needed;
        if (!FindTopUnit(*files, Scan, top)) {
            needed.resize(Plan.Sources.size());
            std::iota(needed.begin(), needed.end(), std::size_t{0});
            return needed;
        }
        AddUnexplained(Scan, files);
        for (std::uint32_t file = 0; file < Needs.GetFiles().size(); ++file) {
            if (!files->IsNeeded(file)) continue;
            const std::vector<std::size_t>& numbers = NumbersOf(*Needs.GetFiles()[file]);
            needed.insert(needed.end(), numbers.begin(), numbers.end());
        }
        SortOnce(&needed);
        return needed;
    }

    static void SortOnce(std::vector<std::size_t>* numbers) {
        std::sort(numbers->begin(), numbers->end());
        numbers->erase(std::unique(numbers->begin(), numbers->end()), numbers->end());
    }

    const TBuildPlan& Plan;
    const TBuildScan Scan;
    TBuildNeeds Needs;
    std::unordered_map<std::string, std::vector<std::size_t>> Numbers;  // by path
};

}  // namespace

TRunScan ScanForRun(THdlBuildFile& build, const TBuildPlan& plan) {
    return TPlanScan(build, plan).Tell();
}
