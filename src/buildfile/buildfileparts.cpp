#include "buildfile/buildfileparts.h"
#include "buildfile/simwraphdlbuildfile.h"
#include "projectfiles/ihdlsourcefile.h"
#include "services/base/keeper.h"
#include "services/files/filenameparts.h"
#include "services/names/isfilename.h"
#include "settings/projectsimgeneralconfig.h"
#include "settings/projectsimlanguageconfig.h"
#include <new>

namespace {

void KeepConfig(TKeeper* keeper, const TProjectSimLanguageConfig* config) {
    const void* const object = config;
    keeper->Keep(object, [](const void* kept) {
        DeleteLanguageConfig(static_cast<const TProjectSimLanguageConfig*>(kept));
    });
}

}  // namespace

TBuildFileParts::TBuildFileParts(IBuildManager* build) : SourceFileOwner(build), Builds{build} {}

TBuildFileParts::~TBuildFileParts() {
    OptionsRead.HandOverAll();
    if (OwnsConfigs) return;  // deleted by the keepers
    ConfigsRead.HandOverAll();
    Configs->HandOverAll();
}

void TBuildFileParts::Leave(IBuildManager* build) {
    Builds.erase(build);
    if (SourceFileOwner.GetBuildManager() != build) return;
    SourceFileOwner.SetBuildManager(Builds.empty() ? nullptr : *Builds.begin());
}

void TBuildFileParts::Store(THdlLanguage language, TProjectSimLanguageConfig* config) {
    KeepAndStore(language, config, Configs.get());
}

void TBuildFileParts::StoreRead(THdlLanguage language, TProjectSimLanguageConfig* config) {
    KeepAndStore(language, config, &ConfigsRead);
}

void TBuildFileParts::KeepAndStore(THdlLanguage language, TProjectSimLanguageConfig* config,
                                   TKeeper* keeper) {
    std::unique_ptr<TProjectSimLanguageConfig> given(config);
    KeepConfig(keeper, config);
    LanguageConfigs.Store(language, given.release());
}

void TBuildFileParts::StoreCopyFor(IHdlSourceFile* source) {
    const TProjectSimLanguageConfig* config = source->GetProjectLanguageConfig();
    if (!config) return;
    const THdlLanguage language = source->GetLanguage();
    const bool isOurs = config == LanguageConfigs.Find(language);
    SourceFileOwner.MakeRoomForRecord(source);
    Store(language, new TProjectSimLanguageConfig(*config, 1));
    // A THdlSourceFile finds the new configuration itself; a source of another class may still
    // point to the one just deleted.
    if (isOurs) source->SetProjectLanguageConfig(LanguageConfigs.Find(language));
    SourceFileOwner.RecordLanguageConfig(source, LanguageConfigs.FindSlot(language));
}

void TBuildFileParts::Clear() {
    // All that takes memory comes first.
    SourceFileOwner.Clear();
    LanguageConfigs.Clear();
    Configs->TakeAll(&ConfigsRead);
    SimTools.Clear();
    SourceFileGroups.Flush();
    CompileList.Flush();
    Components.Clear();
}

void TBuildFileParts::KeepInTheEnd(TProjectSimGeneralConfig* general, bool isLast) {
    try {
        Configs->Keep(general);
    } catch (const std::bad_alloc&) {
        // This is called by a destructor. One that others may use stays behind.
        if (isLast && IsSoleKeeper()) delete general;
    }
}

void TBuildFileParts::DeleteConfigs() {
    if (IsSoleKeeper()) {
        LanguageConfigs.DeleteAll();
        Configs->DeleteAll();
    }
    ConfigsRead.DeleteAll();
}

void TBuildFileParts::DeleteWhatWasRead() {
    ConfigsRead.DeleteAll();
    OptionsRead.DeleteAll();
    Components.DeleteNamesRead();
}

std::vector<std::shared_ptr<const TKeeper>> TBuildFileParts::GetCallersShares() const {
    std::vector<std::shared_ptr<const TKeeper>> shares{SimTools.GetCallersShare(),
                                                       Components.GetCallersShare(),
                                                       SourceFileOwner.GetCallersShare()};
    if (OwnsConfigs) shares.push_back(Configs);
    return shares;
}

void TBuildFileParts::NoteFile(const std::string& path, const TFileStatus& status) {
    NotedPath = path;
    NotedStatus = status;
}

bool TBuildFileParts::IsOtherThanNoted(const std::string& path) const {
    if (NotedPath != path) return false;
    const TFileStatus status = LookAtFile(path);
    return status.Exists && !(status == NotedStatus);
}

TBaseDirectory& TBuildFileParts::DirectoryOf(const ISFileName* file) {
    const ISFileName* handle = GetInnermostHandle(file);
    // The text of a name of another kind may change.
    const bool isLasting = IsSharedHandle(handle);
    if (!isLasting || handle != DirectoryFile)
        Directory = TBaseDirectory(file ? file->GetParts(PART_DIRECTORY) : "");
    DirectoryFile = isLasting ? handle : nullptr;
    return Directory;
}

bool IsBuildOfTheLibrary(const THdlBuildFile& build) {
    const std::type_info& type = typeid(build);
    return type == typeid(THdlBuildFile) || type == typeid(TSimWrapHdlBuildFile);
}
