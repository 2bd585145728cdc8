#pragma once
#include "services/base/api.h"
#include "services/hdl/hdllanguage.h"

class ISFileName;
class THdlProjectSourceFile;
class TIHdlSourceFileList;
class TProjectSimLanguageConfig;

/// What a build knows of one HDL source: its language, its library, the sources it depends on.
///
/// Pointers to other objects are never owned: configurations and dependencies must outlive the
/// source's use, and a source must be taken out of every group and dependency list before it is
/// deleted.
class HDLBUILDFILE_SHARED_TYPE IHdlSourceFile {
public:
    virtual ~IHdlSourceFile() = default;
    virtual THdlLanguage GetLanguage() = 0;
    /// Null for a source without a name. The handle is shared.
    virtual const ISFileName* GetFileName() const = 0;
    virtual const ISFileName* GetFileName() = 0;
    virtual void SetIsListedForCompile(bool listed) = 0;
    virtual bool GetIsListedForCompile() = 0;
    /// Whether the source is a library file ("-v" on a Verilog command line).
    virtual bool IsLibrary() const = 0;
    virtual void SetLibraryFlag(bool isLibrary) = 0;
    /// Excluded sources get no line in a command file. The flag is not stored in the build file.
    virtual bool IsExcludeFromBuild() const = 0;
    virtual void SetExcludeFromBuild(bool exclude) = 0;
    /// Never null; lives until the name is set again.
    virtual const char* GetPrecompiledLibraryGroupName() const = 0;
    /// Copies the name; null counts as empty.
    virtual void SetPrecompiledLibraryGroupName(const char* name) = 0;
    virtual void SetProjectLanguageConfig(TProjectSimLanguageConfig* config) = 0;
    /// Null when the source has none.
    virtual TProjectSimLanguageConfig* GetProjectLanguageConfig() = 0;
    virtual const TProjectSimLanguageConfig* GetProjectLanguageConfig() const = 0;
    /// The sources that must be compiled before this one; may be null, which means none.
    virtual TIHdlSourceFileList* GetDependencyList() = 0;
    virtual const TIHdlSourceFileList* GetDependencyList() const = 0;
    /// False, with nothing added, for null and for a name that is a dependency already.
    virtual bool AddDependency(IHdlSourceFile* dependency) = 0;
    /// The dependency of that name; null when there is none.
    virtual IHdlSourceFile* GetDependency(const ISFileName* name) = 0;
    virtual const IHdlSourceFile* GetDependency(const ISFileName* name) const = 0;
    /// As TIHdlSourceFileList::RemoveSourceFile.
    virtual bool RemoveDependency(IHdlSourceFile* dependency) = 0;
    virtual bool RemoveDependency(const ISFileName* name) = 0;
    /// A project source is a source and a file name: it is taken as a source.
    bool RemoveDependency(THdlProjectSourceFile* dependency);
    virtual void FlushDependencies() = 0;
};
