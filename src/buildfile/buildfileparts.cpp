#include "buildfile/buildfileparts.h"
#include "projectfiles/ihdlsourcefile.h"
#include "services/base/keeper.h"
#include "settings/projectsimgeneralconfig.h"
#include "settings/projectsimlanguageconfig.h"

namespace {

template <class TConfig>
void Delete(TConfig* config) {
    ForgetKept(config);
    delete config;
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

void TBuildFileParts::StoreCopy(THdlLanguage language, const TProjectSimLanguageConfig& config) {
    LanguageConfigs.Store(language, new TProjectSimLanguageConfig(config, 1));
}

void TBuildFileParts::StoreCopyFor(IHdlSourceFile* source) {
    const TProjectSimLanguageConfig* config = source->GetProjectLanguageConfig();
    if (!config) return;
    const THdlLanguage language = source->GetLanguage();
    const bool isOurs = config == LanguageConfigs.Find(language);
    StoreCopy(language, *config);
    // Plain sources follow by themselves, those of other classes may hold what was just deleted.
    if (isOurs) source->SetProjectLanguageConfig(LanguageConfigs.Find(language));
    SourceFileOwner.RecordLanguageConfig(source, LanguageConfigs.FindSlot(language));
}

void TBuildFileParts::Clear() {
    for (const auto& [language, slot] : LanguageConfigs.GetSlots()) FormerSlots.push_back(slot);
    LanguageConfigs.Clear();
    SimTools.Clear();
    SourceFileGroups.Flush();
    CompileList.Flush();
    SourceFileOwner.Clear();
    Components.Clear();
}

void TBuildFileParts::DeleteConfigs() {
    LanguageConfigs.DeleteAll();
    for (const auto& slot : FormerSlots) {
        Delete(slot->Config);
        slot->Config = nullptr;
    }
    FormerSlots.clear();
    for (TProjectSimGeneralConfig* config : GeneralConfigs) Delete(config);
    GeneralConfigs.clear();
}
