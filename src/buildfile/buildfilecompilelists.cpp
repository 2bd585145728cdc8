#include "buildfile/buildfileparts.h"
#include "buildfile/compileorder.h"
#include "buildfile/hdlbuildfile.h"
#include "projectfiles/ihdlsourcefile.h"
#include <new>

const TIHdlSourceFileList* THdlBuildFile::GetFilesToCompile(THdlLanguage language) const {
    if (language == LANGUAGE_VHDL) return Parts->CompileList.LookUpGroup(language);
    return GetSourceFileGroup(language);
}

void THdlBuildFile::OrderFilesForCompile(THdlLanguage language) {
    if (language != LANGUAGE_VHDL) return;
    // In place: callers may hold the list.
    TIHdlSourceFileList* ordered = Parts->CompileList.LookUpGroup(language);
    ordered->Flush();
    TCompileOrder(*GetSourceFileGroup(language)).Fill(ordered);
}

const std::vector<std::string>& THdlBuildFile::GetPrecompiledLibraryGroups() const {
    return PrecompiledLibraryGroups;
}

void THdlBuildFile::AddPrecompiledLibraryGroupNoDup(const char* name) {
    const std::string text = name ? name : "";
    const auto [place, isNew] = PrecompiledLibraryNames.insert(text);
    if (!isNew) return;
    try {
        PrecompiledLibraryGroups.push_back(text);
    } catch (const std::bad_alloc&) {
        PrecompiledLibraryNames.erase(place);
        throw;
    }
}

void THdlBuildFile::DropLastPrecompiledLibraryGroup() {
    PrecompiledLibraryNames.erase(PrecompiledLibraryGroups.back());
    PrecompiledLibraryGroups.pop_back();
}

void THdlBuildFile::CompilePrecompiledLibraryGroup() {
    PrecompiledLibraryGroups.clear();
    PrecompiledLibraryNames.clear();
    for (const IHdlSourceFile* source : *GetSourceFileGroup(HdlLanguage))
        AddPrecompiledLibraryGroupNoDup(source->GetPrecompiledLibraryGroupName());
}
