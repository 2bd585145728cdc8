#pragma once
#include "projectfiles/ihdlsourcefile.h"
#include <cstdint>
#include <memory>
#include <string>

class THdlProject;
struct TLanguageConfigSlot;

/// A plain HDL source: a file name with the language of its extension, flags and dependencies.
///
/// The dependency list outlives the source: pointers to it stay valid until the process ends, or
/// until the build that made the source ends.
class HDLBUILDFILE_API THdlSourceFile : public IHdlSourceFile {
public:
    /// Takes the shared handle of `name`; null counts as empty.
    explicit THdlSourceFile(const char* name);
    /// Keeps `name`, which must outlive the source: pass a tracked file name's GetFileName(). May
    /// be null.
    explicit THdlSourceFile(const ISFileName* name);
    /// Every field the same, with a dependency list of its own that holds the same sources.
    THdlSourceFile(const THdlSourceFile& other);
    THdlSourceFile& operator=(const THdlSourceFile& other);
    ~THdlSourceFile() override;

    /// Takes the language from the file name, a new dependency list, no configuration and no flags.
    void Initialize();

    THdlLanguage GetLanguage() override { return Language; }
    const ISFileName* GetFileName() const override { return FileName; }
    const ISFileName* GetFileName() override { return FileName; }
    void SetIsListedForCompile(bool listed) override { IsListedForCompile = listed; }
    bool GetIsListedForCompile() override { return IsListedForCompile; }
    bool IsLibrary() const override { return LibraryFlag; }
    void SetLibraryFlag(bool isLibrary) override { LibraryFlag = isLibrary; }
    bool IsExcludeFromBuild() const override { return ExcludeFromBuild; }
    void SetExcludeFromBuild(bool exclude) override { ExcludeFromBuild = exclude; }
    const char* GetPrecompiledLibraryGroupName() const override;
    void SetPrecompiledLibraryGroupName(const char* name) override;
    /// Keeps the pointer. A configuration that a build holds is followed when the build replaces
    /// it.
    void SetProjectLanguageConfig(TProjectSimLanguageConfig* config) override;
    TProjectSimLanguageConfig* GetProjectLanguageConfig() override;
    const TProjectSimLanguageConfig* GetProjectLanguageConfig() const override;
    TIHdlSourceFileList* GetDependencyList() override { return Dependencies; }
    const TIHdlSourceFileList* GetDependencyList() const override { return Dependencies; }
    /// Appends it; a source may depend on itself here.
    bool AddDependency(IHdlSourceFile* dependency) override;
    IHdlSourceFile* GetDependency(const ISFileName* name) override;
    const IHdlSourceFile* GetDependency(const ISFileName* name) const override;
    using IHdlSourceFile::RemoveDependency;
    bool RemoveDependency(IHdlSourceFile* dependency) override;
    bool RemoveDependency(const ISFileName* name) override;
    void FlushDependencies() override;

    THdlProject* GetProject() const { return Project; }
    void SetProject(THdlProject* project) { Project = project; }

    /// THdbSFileName::GetHandleChangeCount(): one count for tracked names and plain sources, to
    /// which Initialize() adds one, too, unless a constructor calls it.
    static unsigned long long GetHandleChangeCount();

private:
    friend class TCompileOrder;
    friend class TReadSourceFile;
    friend class TSourceFileOwner;
    /// A source whose owner also has `dependencies`, an empty list, and frees both.
    THdlSourceFile(const ISFileName* name, TIHdlSourceFileList* dependencies);
    void SetLanguageFromExtension();
    void TakeFlags(const THdlSourceFile& other);

    const ISFileName* FileName;
    THdlLanguage Language = LANGUAGE_NONE;
    bool IsListedForCompile = false;
    bool LibraryFlag = false;
    bool ExcludeFromBuild = false;
    bool MayBeKept = true;  // false for a source that its owner keeps in another way
    THdlProject* Project = nullptr;
    TIHdlSourceFileList* Dependencies = nullptr;
    // What the last compile order that met the source knows of it.
    mutable std::uint64_t CompileMark = 0;
    TProjectSimLanguageConfig* ProjectLanguageConfig = nullptr;
    std::unique_ptr<const std::string> PrecompiledLibraryGroupName;  // null: none
    // Where a build keeps ProjectLanguageConfig; null for a configuration of the caller's own.
    std::shared_ptr<const TLanguageConfigSlot> ConfigSlot;
};

/// Deletes `source` with its dependency list: for the sole holder of both.
void DeleteWithDependencies(THdlSourceFile* source);
