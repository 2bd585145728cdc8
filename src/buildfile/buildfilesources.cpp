#include "buildfile/buildfileparts.h"
#include "buildfile/hdlbuildfile.h"
#include "projectfiles/ihdlsourcefile.h"
#include "services/files/pathtext.h"
#include "services/names/isfilename.h"
#include "settings/projectsimlanguageconfig.h"
#include <new>

void THdlBuildFile::AddLanguageConfig(THdlLanguage language,
                                      const TProjectSimLanguageConfig* configuration) {
    if (configuration) Parts->Store(language, new TProjectSimLanguageConfig(*configuration, 1));
}

void THdlBuildFile::AddLanguageConfigForSourceFile(IHdlSourceFile* source) {
    if (source) Parts->StoreCopyFor(source);
}

TProjectSimLanguageConfig* THdlBuildFile::GetProjectLanguageConfig(THdlLanguage language) {
    return Parts->LanguageConfigs.Find(language);
}

const TProjectSimLanguageConfig* THdlBuildFile::GetProjectLanguageConfig(
    THdlLanguage language) const {
    return Parts->LanguageConfigs.Find(language);
}

TProjectSimLanguageConfig* THdlBuildFile::GetProjectLanguageConfigForFileRead(
    THdlLanguage language) {
    return Parts->LanguageConfigs.Find(language);
}

TProjectSimLanguageConfig* THdlBuildFile::GetOrMakeLanguageConfig(THdlLanguage language) {
    if (!Parts->LanguageConfigs.Find(language))
        Parts->StoreRead(language, new TProjectSimLanguageConfig(1));
    return Parts->LanguageConfigs.Find(language);
}

bool THdlBuildFile::AddSourceFile(IHdlSourceFile* source, bool atHead) {
    if (!source) return false;
    TSourceFileGroups::TAddition addition;
    const std::size_t groupCount = PrecompiledLibraryGroups.size();
    try {
        Parts->SourceFileGroups.AddSourceFile(source, atHead, &addition);
        AddPrecompiledLibraryGroupNoDup(source->GetPrecompiledLibraryGroupName());
        // Last: a configuration that it replaces is gone.
        AddLanguageConfigForSourceFile(source);
    } catch (const std::bad_alloc&) {
        if (PrecompiledLibraryGroups.size() > groupCount) DropLastPrecompiledLibraryGroup();
        Parts->SourceFileGroups.Undo(addition);
        throw;
    }
    return addition.WasAdded;
}

IHdlSourceFile* THdlBuildFile::CreateOrGetSourceFile(const char* fileName) {
    const ISFileName* name = HandleOf(fileName);
    TSourceFileGroups& groups = Parts->SourceFileGroups;
    IHdlSourceFile* source = nullptr;
    bool isListed = false;
    if (!groups.FindWhileReading(name, &source, &isListed)) {
        source = groups.GetSourceFile(name);
        isListed = source != nullptr;
        if (!isListed) source = groups.GetDependency(name);
    }
    if (!source) return Parts->SourceFileOwner.MakeSourceFile(name);
    if (!isListed) Parts->SourceFileOwner.TakeOverSpelling(source, name);
    ReportNamesake(source->GetFileName(), name);
    return source;
}

// The handle of ResolveAgainstProject(path).
const ISFileName* THdlBuildFile::HandleOf(const char* path) const {
    if (!BuildFileName || !IsRelativePath(path)) return ISFileName::NewISFileName(path);
    const ISFileName* known =
        Parts->SourceFileGroups.FindHandleWhileReading(path, GetInnermostHandle(BuildFileName));
    if (known) return known;
    return NewHandleOfCanonicalPath(Parts->DirectoryOf(BuildFileName).Resolve(path ? path : ""));
}

std::string THdlBuildFile::ResolveAgainstProject(const char* path) const {
    const char* const text = path ? path : "";
    if (!BuildFileName || !IsRelativePath(text)) return text;
    return std::string(Parts->DirectoryOf(BuildFileName).Resolve(text));
}

TIHdlSourceFileList* THdlBuildFile::GetSourceFileGroup(THdlLanguage language) {
    return Parts->SourceFileGroups.LookUpGroup(language);
}

const TIHdlSourceFileList* THdlBuildFile::GetSourceFileGroup(THdlLanguage language) const {
    return Parts->SourceFileGroups.LookUpGroup(language);
}

std::vector<THdlLanguage> THdlBuildFile::GetSourceFileLanguages() const {
    return Parts->SourceFileGroups.GetLanguages();
}

bool THdlBuildFile::GetFilesMissing() const {
    return Parts->SourceFileGroups.GetFilesMissing();
}
