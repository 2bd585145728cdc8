#include "buildfile/buildfileparts.h"
#include "settings/projectsimgeneralconfig.h"
#include "settings/projectsimlanguageconfig.h"
#include "sibling/utilities/keeper.h"

namespace {

template <class TConfig>
void DeleteAll(std::unordered_set<TConfig*>& configs) {
    for (TConfig* config : configs) {
        ForgetKept(config);
        delete config;
    }
    configs.clear();
}

}  // namespace

TBuildFileParts::TBuildFileParts(IBuildManager* build) : SourceFileOwner(build), Builds{build} {}

TBuildFileParts::~TBuildFileParts() {
    if (OwnsConfigs) DeleteConfigs();
}

void TBuildFileParts::Leave(IBuildManager* build) {
    Builds.erase(build);
    if (SourceFileOwner.GetBuildManager() != build) return;
    SourceFileOwner.SetBuildManager(Builds.empty() ? nullptr : *Builds.begin());
}

void TBuildFileParts::Clear() {
    for (const auto& [language, slot] : LanguageConfigs.GetSlots())
        FormerConfigs.insert(slot->Config);
    LanguageConfigs.Clear();
    SimTools.Clear();
    SourceFileGroups.Flush();
    CompileList.Flush();
    SourceFileOwner.Clear();
    Components.Clear();
}

void TBuildFileParts::DeleteConfigs() {
    LanguageConfigs.DeleteAll();
    DeleteAll(FormerConfigs);
    DeleteAll(GeneralConfigs);
}
