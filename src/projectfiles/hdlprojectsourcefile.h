#pragma once
#include "projectfiles/hdlprojectfile.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include <string>

class TProjectSimGeneralConfig;

/// An HDL source of a project: a project file that takes part in a build.
///
/// Its language is that of its extension. Its settings are always looked up, never stored: those of
/// its owner, or without an owner those of the template diagram configuration.
class HDLBUILDFILE_API THdlProjectSourceFile : public THdlProjectFile, public IHdlSourceFile {
public:
    /// As THdlProjectFile, of type FILE_TYPE_SOURCE.
    THdlProjectSourceFile(const ISFileName* file, IProjectComponent* owner, bool isLibrary);
    /// Copies flags, group name and stream scope; the copy depends on the same sources.
    THdlProjectSourceFile(const THdlProjectSourceFile& other);
    THdlProjectSourceFile& operator=(const THdlProjectSourceFile& other);
    ~THdlProjectSourceFile() override;

    // First among the operations: they follow those of THdlProjectFile in the virtual table.
    virtual THdlLanguage GetHdlLanguage();
    /// Null when the owner has none. The settings stay the owner's.
    virtual TProjectSimGeneralConfig* GetGeneralProjectSettings() const;

    void Accept(IBaseVisitor* visitor) const override;
    /// GetHdlLanguage().
    THdlLanguage GetLanguage() override;
    const ISFileName* GetFileName() const override;
    const ISFileName* GetFileName() override;
    /// Ignored: project sources are never marked as listed for a compile.
    void SetIsListedForCompile(bool listed) override;
    /// Always false.
    bool GetIsListedForCompile() override;
    bool IsLibrary() const override;
    void SetLibraryFlag(bool isLibrary) override;
    bool IsExcludeFromBuild() const override;
    void SetExcludeFromBuild(bool exclude) override;
    const char* GetPrecompiledLibraryGroupName() const override;
    void SetPrecompiledLibraryGroupName(const char* name) override;
    /// Ignored.
    void SetProjectLanguageConfig(TProjectSimLanguageConfig* config) override;
    /// Null when the owner has none for the language. The settings stay the owner's.
    TProjectSimLanguageConfig* GetProjectLanguageConfig() override;
    const TProjectSimLanguageConfig* GetProjectLanguageConfig() const override;
    /// Never null, a part of this file.
    TIHdlSourceFileList* GetDependencyList() override;
    const TIHdlSourceFileList* GetDependencyList() const override;
    /// False, with nothing added, for null, for a source without a name, for one of this file's own
    /// name and for a name that is a dependency already.
    bool AddDependency(IHdlSourceFile* dependency) override;
    IHdlSourceFile* GetDependency(const ISFileName* name) override;
    const IHdlSourceFile* GetDependency(const ISFileName* name) const override;
    using IHdlSourceFile::RemoveDependency;
    bool RemoveDependency(IHdlSourceFile* dependency) override;
    bool RemoveDependency(const ISFileName* name) override;
    void FlushDependencies() override;

    /// Carried for its user; null at first.
    hdb::IStreamScope* GetStreamScope() const { return StreamScope; }
    void SetStreamScope(hdb::IStreamScope* scope) { StreamScope = scope; }

private:
    bool LibraryFlag;
    bool ExcludeFromBuild = false;
    TIHdlSourceFileList Dependencies;
    std::string PrecompiledLibraryGroupName;
    hdb::IStreamScope* StreamScope = nullptr;
};

inline bool IHdlSourceFile::RemoveDependency(THdlProjectSourceFile* dependency) {
    IHdlSourceFile* source = dependency;
    return RemoveDependency(source);
}
