#pragma once
#include "filenames/toplevelcomponents.h"
#include "projectfiles/languageconfigmap.h"
#include "projectfiles/sourcefilegroups.h"
#include "projectfiles/sourcefileowner.h"
#include "simtools/simtoolmap.h"
#include <memory>
#include <unordered_set>
#include <vector>

class IBuildManager;
class IHdlSourceFile;
class TProjectSimGeneralConfig;
class TProjectSimLanguageConfig;

/// The sub-objects of a build file, shared by its copies and freed with the last of them.
struct TBuildFileParts {
    explicit TBuildFileParts(IBuildManager* build);
    /// Deletes the configurations when a build that owned them ever shared the parts.
    ~TBuildFileParts();
    TBuildFileParts(const TBuildFileParts&) = delete;
    TBuildFileParts& operator=(const TBuildFileParts&) = delete;

    /// `build` shares the parts from now on.
    void Join(IBuildManager* build) { Builds.insert(build); }
    /// It does so no longer; another sharer then serves the source file owner in its place.
    void Leave(IBuildManager* build);
    /// Puts a copy of `config` in the place of the language's configuration, which is deleted; it
    /// may be `config` itself.
    void StoreCopy(THdlLanguage language, const TProjectSimLanguageConfig& config);
    /// The same with the configuration of `source`, if it has one, which is recorded.
    void StoreCopyFor(IHdlSourceFile* source);
    /// Empties everything. Sources made and configurations stay valid.
    void Clear();
    /// Deletes the language configurations and the general configurations noted.
    void DeleteConfigs();

    TSimToolMap SimTools;
    TLanguageConfigMap LanguageConfigs;
    /// Relative names are taken against the directory of its build manager: a build that reads sets
    /// itself first.
    TSourceFileOwner SourceFileOwner;
    // Behind the owner, so that the groups let go of the sources before it deletes them.
    TSourceFileGroups SourceFileGroups{&SourceFileOwner};
    TSourceFileGroups CompileList{nullptr};
    TTopLevelComponents Components;

    bool OwnsConfigs = false;
    /// The general configurations that the reader made, and those of owning builds that are gone.
    std::unordered_set<TProjectSimGeneralConfig*> GeneralConfigs;

private:
    // Emptied out of LanguageConfigs, for DeleteConfigs. Sources outside may still hold them.
    std::vector<std::shared_ptr<TLanguageConfigSlot>> FormerSlots;
    std::unordered_set<IBuildManager*> Builds;
};
