#pragma once
#include "filenames/toplevelcomponents.h"
#include "projectfiles/languageconfigmap.h"
#include "projectfiles/sourcefilegroups.h"
#include "projectfiles/sourcefileowner.h"
#include "services/base/keeper.h"
#include "services/files/basedirectory.h"
#include "services/files/filestatus.h"
#include "simtools/simtoolmap.h"
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

class IBuildManager;
class IHdlSourceFile;
class ISFileName;
class THdlBuildFile;
class TProjectSimGeneralConfig;
class TProjectSimLanguageConfig;

/// The sub-objects of a build file, shared by its copies and freed with the last of them.
struct TBuildFileParts {
    explicit TBuildFileParts(IBuildManager* build);
    /// Deletes the configurations when a build that owned them ever shared the parts; otherwise
    /// they stay valid until the process ends, as translator options do.
    ~TBuildFileParts();
    TBuildFileParts(const TBuildFileParts&) = delete;
    TBuildFileParts& operator=(const TBuildFileParts&) = delete;

    /// `build` shares the parts from now on.
    void Join(IBuildManager* build) { Builds.insert(build); }
    /// `build` no longer shares the parts. If it was the source file owner's build manager, another
    /// build that shares the parts becomes that.
    void Leave(IBuildManager* build);
    /// Puts `config` in the place of the language's configuration, which is deleted.
    void Store(THdlLanguage language, TProjectSimLanguageConfig* config);
    /// The same with one that the reader makes.
    void StoreRead(THdlLanguage language, TProjectSimLanguageConfig* config);
    /// Stores a copy of the configuration of `source`, if it has one, and records it.
    void StoreCopyFor(IHdlSourceFile* source);
    /// Empties everything. Sources made and configurations stay valid.
    void Clear();
    /// Keeps the general configuration of a build that ends, the only one that shares the parts
    /// when `isLast`.
    void KeepInTheEnd(TProjectSimGeneralConfig* general, bool isLast);
    /// Deletes the configurations, those of the languages first.
    void DeleteConfigs();
    /// Deletes, of what the reader made, all that the destructor would leave valid.
    void DeleteWhatWasRead();
    /// What callers made or handed in, and what Clear let go of: to be held for as long as that is
    /// to stay valid.
    std::vector<std::shared_ptr<const TKeeper>> GetCallersShares() const;

    /// Notes how the build file of that canonical path was when it was read or saved.
    void NoteFile(const std::string& path, const TFileStatus& status);
    /// Whether it is another one by now. False for a file that is gone, or was not noted last.
    bool IsOtherThanNoted(const std::string& path) const;

    /// The directory of `file`, without one for null. Valid until the next call.
    TBaseDirectory& DirectoryOf(const ISFileName* file);

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
    /// The language and general configurations: those that the reader made, and all others.
    TKeeper ConfigsRead;
    std::shared_ptr<TKeeper> Configs = std::make_shared<TKeeper>();
    /// The translator options that the reader made, and their list.
    TKeeper OptionsRead;

private:
    bool IsSoleKeeper() const { return Configs.use_count() == 1; }
    void KeepAndStore(THdlLanguage language, TProjectSimLanguageConfig* config, TKeeper* keeper);

    std::unordered_set<IBuildManager*> Builds;
    TBaseDirectory Directory;
    const ISFileName* DirectoryFile = nullptr;  // a shared handle
    std::string NotedPath;
    TFileStatus NotedStatus;
};

/// Whether `build` is of a class of the library itself: none of its operations is a caller's.
bool IsBuildOfTheLibrary(const THdlBuildFile& build);
