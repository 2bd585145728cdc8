#include "projectfiles/hdlprojectsourcefile.h"
#include "projectfiles/sourcename.h"
#include "services/designdatabase/iprojectcomponent.h"
#include "services/designdatabase/visitor.h"
#include "services/hdl/sourcefileextensions.h"
#include "settings/projectdiagramsimconfig.h"

THdlProjectSourceFile::THdlProjectSourceFile(const ISFileName* file, IProjectComponent* owner,
                                             bool isLibrary)
    : THdlProjectFile(file, owner, true), LibraryFlag(isLibrary) {
    SetProjectFileType(FILE_TYPE_SOURCE);
}

THdlProjectSourceFile::THdlProjectSourceFile(const THdlProjectSourceFile& other) = default;

THdlProjectSourceFile& THdlProjectSourceFile::operator=(const THdlProjectSourceFile& other) =
    default;

THdlProjectSourceFile::~THdlProjectSourceFile() = default;

THdlLanguage THdlProjectSourceFile::GetHdlLanguage() {
    return TSourceFileExtensions::GetInstance()->GetSourceFileLanguageFromExtension(GetExtOnly());
}

TProjectSimGeneralConfig* THdlProjectSourceFile::GetGeneralProjectSettings() const {
    if (IProjectComponent* owner = GetOwningProjectComponent())
        return owner->GetGeneralConfiguration();
    return HdlBuildFile::GetTemplateDiagramSimConfig()->GetGeneralConfiguration();
}

void THdlProjectSourceFile::Accept(IBaseVisitor* visitor) const {
    AcceptVisitor(visitor, this);
}

THdlLanguage THdlProjectSourceFile::GetLanguage() {
    return GetHdlLanguage();
}

const ISFileName* THdlProjectSourceFile::GetFileName() const {
    return THdlProjectFile::GetFileName();
}

const ISFileName* THdlProjectSourceFile::GetFileName() {
    return THdlProjectFile::GetFileName();
}

void THdlProjectSourceFile::SetIsListedForCompile(bool) {}

bool THdlProjectSourceFile::GetIsListedForCompile() {
    return false;
}

bool THdlProjectSourceFile::IsLibrary() const {
    return LibraryFlag;
}

void THdlProjectSourceFile::SetLibraryFlag(bool isLibrary) {
    LibraryFlag = isLibrary;
}

bool THdlProjectSourceFile::IsExcludeFromBuild() const {
    return ExcludeFromBuild;
}

void THdlProjectSourceFile::SetExcludeFromBuild(bool exclude) {
    ExcludeFromBuild = exclude;
}

const char* THdlProjectSourceFile::GetPrecompiledLibraryGroupName() const {
    return PrecompiledLibraryGroupName.c_str();
}

void THdlProjectSourceFile::SetPrecompiledLibraryGroupName(const char* name) {
    // `name` may be a part of the present name.
    PrecompiledLibraryGroupName = std::string(name ? name : "");
}

void THdlProjectSourceFile::SetProjectLanguageConfig(TProjectSimLanguageConfig*) {}

TProjectSimLanguageConfig* THdlProjectSourceFile::GetProjectLanguageConfig() {
    if (IProjectComponent* owner = GetOwningProjectComponent())
        return owner->GetProjectLanguageConfig(GetLanguage());
    return HdlBuildFile::GetTemplateDiagramSimConfig()->GetProjectLanguageConfig(GetLanguage());
}

const TProjectSimLanguageConfig* THdlProjectSourceFile::GetProjectLanguageConfig() const {
    // The design database asks for a language through objects that are not const.
    return const_cast<THdlProjectSourceFile*>(this)->GetProjectLanguageConfig();
}

TIHdlSourceFileList* THdlProjectSourceFile::GetDependencyList() {
    return &Dependencies;
}

const TIHdlSourceFileList* THdlProjectSourceFile::GetDependencyList() const {
    return &Dependencies;
}

bool THdlProjectSourceFile::AddDependency(IHdlSourceFile* dependency) {
    TSourceName name;
    TSourceName own;
    if (!dependency || !GetSourceName(dependency, &name)) return false;
    if (GetSourceName(GetFileName(), &own) && name == own) return false;
    return Dependencies.AddSourceFile(dependency, false);
}

IHdlSourceFile* THdlProjectSourceFile::GetDependency(const ISFileName* name) {
    return Dependencies.GetSourceFile(name);
}

const IHdlSourceFile* THdlProjectSourceFile::GetDependency(const ISFileName* name) const {
    return Dependencies.GetSourceFile(name);
}

bool THdlProjectSourceFile::RemoveDependency(IHdlSourceFile* dependency) {
    return Dependencies.RemoveSourceFile(dependency);
}

bool THdlProjectSourceFile::RemoveDependency(const ISFileName* name) {
    return Dependencies.RemoveSourceFile(name);
}

void THdlProjectSourceFile::FlushDependencies() {
    Dependencies.Flush();
}
