#include "flows/plan/buildplan.h"
#include "buildfile/hdlbuildfile.h"
#include "flows/listedsources.h"
#include "flows/plan/planoptions.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/hdl/hdllanguagetable.h"
#include "services/names/environment.h"
#include "services/names/isfilename.h"
#include "settings/projectsimlanguageconfig.h"
#include <algorithm>
#include <unordered_map>

namespace {

/// Makes the plan of a build.
class TPlanner {
public:
    explicit TPlanner(THdlBuildFile& build) : Build(build) {}
    TBuildPlan Make();

private:
    void AddName();
    void AddSources(THdlLanguage language);
    void AddNeeds();
    void AddTops();
    void AddSettings(THdlLanguage language);
    std::string Resolved(const std::string& text);
    void AddDirectories(const std::vector<std::string>& directories, std::vector<std::string>* to);

    THdlBuildFile& Build;
    TBuildPlan Plan;
    std::vector<const IHdlSourceFile*> Files;  // of the plan's sources; null: of options
};

TBuildPlan TPlanner::Make() {
    AddName();
    for (const THdlLanguageRecord& record : GetHdlLanguageTable()) {
        AddSources(record.Language);
        AddSettings(record.Language);
    }
    AddNeeds();
    AddTops();
    return std::move(Plan);
}

void TPlanner::AddName() {
    if (Build.GetFileName()) Plan.Name = Build.GetFileName()->GetParts(PART_NAME);
    Plan.Folder = WholePath("", Build.GetProjectPath()) + "/";
}

void TPlanner::AddSources(THdlLanguage language) {
    Build.OrderFilesForCompile(language);
    for (const IHdlSourceFile* const file : *Build.GetFilesToCompile(language)) {
        if (!file->GetFileName() || file->IsExcludeFromBuild()) continue;
        TPlanSource& source = Plan.Sources.emplace_back();
        source.Path = WholePathOf(*file->GetFileName());
        source.Language = language;
        source.Library = LibraryOfSource(*file, Build);
        source.IsLibraryFile = file->IsLibrary();
        Files.push_back(file);
    }
}

// A source that only another language compiles is not waited for: groups are compiled by
// themselves.
void TPlanner::AddNeeds() {
    std::unordered_map<const IHdlSourceFile*, std::size_t> numbers;
    for (std::size_t number = 0; number < Files.size(); ++number)
        numbers.try_emplace(Files[number], number);
    for (std::size_t number = 0; number < Files.size(); ++number) {
        const TIHdlSourceFileList* const list =
            Files[number] ? Files[number]->GetDependencyList() : nullptr;
        if (!list) continue;
        for (const IHdlSourceFile* const needed : *list)
            if (const auto found = numbers.find(needed);
                found != numbers.end() && found->second != number)
                Plan.Sources[number].Needs.push_back(found->second);
    }
}

void TPlanner::AddTops() {
    Plan.Tops = ListTops(Build);
    for (TBuildTop& top : Plan.Tops)
        if (top.Library.empty()) top.Library = GetDestinationLibraryName(Build);
}

void TPlanner::AddSettings(THdlLanguage language) {
    const TProjectSimLanguageConfig* const config = Build.GetProjectLanguageConfig(language);
    const bool hasSources = !Plan.Sources.empty() && Plan.Sources.back().Language == language;
    if (!config && !hasSources) return;
    TPlanSettings& settings = Plan.Settings.emplace_back();
    settings.Language = language;
    if (!config) return;
    settings.Simulator = config->GetTool();
    settings.Delay = config->GetDelayType();
    AddDirectories(config->GetIncludeDirectories(), &settings.IncludeDirectories);
    AddDirectories(config->GetLibraryDirectories(), &settings.LibraryDirectories);
    settings.LibraryExtensions = config->GetLibraryExtensions();
    const char* const texts[kPlanSteps] = {config->GetBuildOptions(), config->GetLinkerOptions(),
                                           config->GetRuntimeOptions()};
    std::vector<std::string> libraryFiles;
    for (const TPlanStep step : {STEP_ANALYSE, STEP_ELABORATE, STEP_RUN})
        AddOptions(Resolved(texts[step]), step, Plan.Folder, &settings, &libraryFiles);
    for (std::string& file : libraryFiles) {
        Plan.Sources.push_back(
            {std::move(file), language, GetDestinationLibraryName(Build), true, {}});
        Files.push_back(nullptr);
    }
}

std::string TPlanner::Resolved(const std::string& text) {
    std::string resolved =
        ResolveOrvaneEnvVariables(text.c_str(), Build.GetPseudoEnvironmentVariables());
    if (HasOrvaneEnvVariable(resolved.c_str()))
        Plan.Losses.push_back({DIAGNOSTIC_UNKNOWN_VARIABLE, {resolved}});
    return resolved;
}

void TPlanner::AddDirectories(const std::vector<std::string>& directories,
                              std::vector<std::string>* to) {
    for (const std::string& directory : directories)
        to->push_back(WholePath(Resolved(directory), Plan.Folder));
}

}  // namespace

const TPlanSettings* TBuildPlan::FindSettings(THdlLanguage language) const {
    for (const TPlanSettings& settings : Settings)
        if (settings.Language == language) return &settings;
    return nullptr;
}

bool IsSystemVerilog(const TPlanSource& source, const TBuildPlan& plan) {
    const TPlanSettings* const settings = plan.FindSettings(LANGUAGE_VERILOG);
    return source.Path.ends_with(".sv") || source.Path.ends_with(".svh") ||
           (settings && !settings->Standard.empty());
}

bool HasSystemVerilog(const TBuildPlan& plan) {
    return std::any_of(plan.Sources.begin(), plan.Sources.end(), [&plan](const auto& source) {
        return source.Language == LANGUAGE_VERILOG && IsSystemVerilog(source, plan);
    });
}

TBuildPlan MakePlan(THdlBuildFile& build) {
    return TPlanner(build).Make();
}
