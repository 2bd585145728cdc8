#pragma once
#include "projectfiles/hdlsourcefile.h"
#include "services/base/keeper.h"
#include <memory>
#include <unordered_map>

class IBuildManager;
class TReadSources;

/// Makes the source files of a build, keeps them, and records which configuration came in with
/// which source.
class TSourceFileOwner {
public:
    /// `build` finds sources and configurations for a read; it may be null and is not owned.
    explicit TSourceFileOwner(IBuildManager* build);
    /// Deletes the sources that were read, with their dependency lists.
    ~TSourceFileOwner();
    TSourceFileOwner(const TSourceFileOwner&) = delete;
    TSourceFileOwner& operator=(const TSourceFileOwner&) = delete;

    IBuildManager* GetBuildManager() const { return Build; }
    void SetBuildManager(IBuildManager* build) { Build = build; }

    /// A new source, which the owner deletes unless a caller deletes it before. Its file is marked
    /// as loaded, except during GetOrMakeSourceFile: a read marks the files that it lists, and the
    /// disk is not asked for those that only others depend on. A source made during
    /// GetOrMakeSourceFile goes with the owner, another with GetCallersShare().
    IHdlSourceFile* MakeSourceFile(const ISFileName* name);

    /// The one source of the build that has this name, made when there is none. Null without a
    /// build.
    IHdlSourceFile* GetOrMakeSourceFile(const char* name);
    /// The same for a source that is to be listed: gives it the build's configuration for
    /// `language`, when it has one.
    IHdlSourceFile* GetOrMakeSourceFile(const char* name, THdlLanguage language);
    /// To be called when the build takes `dependency`, which no group lists, for `name`. When that
    /// is the name of a source to be listed, a plain source takes over its letter case: the file on
    /// disk is the one that is listed.
    void TakeOverSpelling(IHdlSourceFile* dependency, const ISFileName* name) const;

    /// The next RecordLanguageConfig of `source` takes no memory.
    void MakeRoomForRecord(const IHdlSourceFile* source) { Records.try_emplace(source); }
    /// Notes that the configuration in `slot` came in with `source`.
    void RecordLanguageConfig(const IHdlSourceFile* source,
                              std::shared_ptr<const TLanguageConfigSlot> slot);
    /// The build's configuration that replaced the one recorded; null when none was recorded.
    const TProjectSimLanguageConfig* GetRecordedLanguageConfig(const IHdlSourceFile* source) const;

    /// Forgets the records. The sources made so far go with GetCallersShare().
    void Clear();

    /// The sources, with their dependency lists, that were made for callers or let go of by Clear.
    const std::shared_ptr<TKeeper>& GetCallersShare() const { return CallersShare; }

private:
    std::unique_ptr<TReadSources> Read;  // made when first needed
    std::shared_ptr<TKeeper> CallersShare = std::make_shared<TKeeper>();
    enum TRequest { FOR_CALLER, FOR_DEPENDENCY, FOR_LISTING };
    IHdlSourceFile* AskBuild(const char* name, TRequest request);

    IBuildManager* Build;
    TRequest Request = FOR_CALLER;  // why the build is asked for a source
    std::unordered_map<const IHdlSourceFile*, std::shared_ptr<const TLanguageConfigSlot>> Records;
};
