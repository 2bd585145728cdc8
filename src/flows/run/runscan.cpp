#include "flows/run/runscan.h"
#include "flows/buildneeds.h"
#include "flows/buildscan.h"
#include "flows/neededfiles.h"
#include "flows/plan/planoptions.h"
#include "projectfiles/ihdlsourcefile.h"
#include "services/names/isfilename.h"
#include <algorithm>
#include <set>
#include <unordered_map>

namespace {

std::string PathOf(const IHdlSourceFile& source) {
    return source.GetFileName() ? WholePath(source.GetFileName()->Canonical(false), "/")
                                : std::string();
}

std::vector<std::vector<std::string>> IncludesOf(const TBuildScan& scan, const TBuildPlan& plan) {
    std::unordered_map<std::string, std::vector<std::string>> byPath;
    for (std::size_t number = 0; number < scan.GetSources().size(); ++number) {
        std::vector<std::string>& includes = byPath[PathOf(*scan.GetSources()[number].Source)];
        for (const TScannedInclude& include : scan.GetFiles()[number].Scan.Includes)
            if (!include.Path.empty()) includes.push_back(WholePath(include.Path, plan.Folder));
    }
    std::vector<std::vector<std::string>> all;
    all.reserve(plan.Sources.size());
    for (const TPlanSource& source : plan.Sources) all.push_back(byPath[source.Path]);
    return all;
}

std::vector<THdlLanguage> OtherLanguagesOf(const TBuildTop& top, const TBuildScan& scan,
                                           const TBuildNeeds& needs) {
    TNeededFiles files(scan, needs);
    for (const TUnitPlace unit : files.FindUnits(top)) files.Add({unit, top.Architecture});
    std::set<THdlLanguage> languages;
    for (std::uint32_t file = 0; file < needs.GetFiles().size(); ++file)
        if (files.IsNeeded(file)) languages.insert(needs.GetGroup(file));
    languages.erase(top.Language);
    languages.erase(LANGUAGE_NONE);
    return {languages.begin(), languages.end()};
}

}  // namespace

TRunScan ScanForRun(THdlBuildFile& build, const TBuildPlan& plan) {
    const TBuildScan scan(build, TLinkOptions{{}, true});
    TBuildNeeds needs(build);
    needs.Add(scan);
    TRunScan result{IncludesOf(scan, plan), {}};
    for (const TBuildTop& top : plan.Tops)
        result.OtherLanguages.push_back(OtherLanguagesOf(top, scan, needs));
    return result;
}
