#include "projectfiles/hdlsourcefile.h"
#include "filenames/hdbsfilename.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "projectfiles/languageconfigmap.h"
#include "services/base/keeper.h"
#include "services/files/pathpieces.h"
#include "services/hdl/sourcefileextensions.h"
#include "services/names/isfilename.h"

namespace {

using TOwnList = std::unique_ptr<TIHdlSourceFileList>;

// The list is not deleted with its source: pointers to it stay valid.
TIHdlSourceFileList* HandOut(TOwnList list) {
    KeepUntilExit(list.get());
    return list.release();
}

std::unique_ptr<const std::string> MakeGroupName(const char* name) {
    return name && *name ? std::make_unique<const std::string>(name) : nullptr;
}

}  // namespace

THdlSourceFile::THdlSourceFile(const char* name) : FileName(ISFileName::NewISFileName(name)) {
    Initialize();
}

THdlSourceFile::THdlSourceFile(const ISFileName* name) : FileName(name) {
    Initialize();
}

THdlSourceFile::THdlSourceFile(const ISFileName* name, TIHdlSourceFileList* dependencies)
    : FileName(name), MayBeKept(false), Dependencies(dependencies) {
    SetLanguageFromExtension();
}

THdlSourceFile::THdlSourceFile(const THdlSourceFile& other)
    : IHdlSourceFile(other), FileName(other.FileName) {
    TOwnList dependencies = std::make_unique<TIHdlSourceFileList>(*other.Dependencies);
    PrecompiledLibraryGroupName = MakeGroupName(other.GetPrecompiledLibraryGroupName());
    Dependencies = HandOut(std::move(dependencies));
    TakeFlags(other);
}

THdlSourceFile& THdlSourceFile::operator=(const THdlSourceFile& other) {
    if (this == &other) return *this;
    // All memory is taken before anything changes.
    auto groupName = MakeGroupName(other.GetPrecompiledLibraryGroupName());
    *Dependencies = *other.Dependencies;
    PrecompiledLibraryGroupName = std::move(groupName);
    if (FileName != other.FileName) CountHandleChange();
    FileName = other.FileName;
    TakeFlags(other);
    return *this;
}

void THdlSourceFile::TakeFlags(const THdlSourceFile& other) {
    Language = other.Language;
    Project = other.Project;
    ProjectLanguageConfig = other.ProjectLanguageConfig;
    ConfigSlot = other.ConfigSlot;
    IsListedForCompile = other.IsListedForCompile;
    LibraryFlag = other.LibraryFlag;
    ExcludeFromBuild = other.ExcludeFromBuild;
}

THdlSourceFile::~THdlSourceFile() {
    if (MayBeKept) ForgetKept(this);
}

void THdlSourceFile::Initialize() {
    TOwnList dependencies = std::make_unique<TIHdlSourceFileList>();
    SetLanguageFromExtension();
    // Indexes of dependencies know the former list only.
    if (Dependencies) CountHandleChange();
    Dependencies = HandOut(std::move(dependencies));
    SetProjectLanguageConfig(nullptr);
    IsListedForCompile = false;
    LibraryFlag = false;
    ExcludeFromBuild = false;
}

void THdlSourceFile::SetLanguageFromExtension() {
    if (!FileName) {
        Language = LANGUAGE_NONE;
        return;
    }
    const std::string extension(IsSharedHandle(FileName)
                                    ? SplitPath(GetSharedText(FileName)).Extension
                                    : FileName->GetParts(PART_EXTENSION));
    Language =
        TSourceFileExtensions::GetInstance()->GetSourceFileLanguageFromExtension(extension.c_str());
}

const char* THdlSourceFile::GetPrecompiledLibraryGroupName() const {
    return PrecompiledLibraryGroupName ? PrecompiledLibraryGroupName->c_str() : "";
}

void THdlSourceFile::SetPrecompiledLibraryGroupName(const char* name) {
    // The new name may be a part of the former one.
    PrecompiledLibraryGroupName = MakeGroupName(name);
}

void THdlSourceFile::SetProjectLanguageConfig(TProjectSimLanguageConfig* config) {
    ProjectLanguageConfig = config;
    ConfigSlot = config ? FindLanguageConfigSlot(config) : nullptr;
}

TProjectSimLanguageConfig* THdlSourceFile::GetProjectLanguageConfig() {
    return ConfigSlot ? ConfigSlot->Config : ProjectLanguageConfig;
}

const TProjectSimLanguageConfig* THdlSourceFile::GetProjectLanguageConfig() const {
    return ConfigSlot ? ConfigSlot->Config : ProjectLanguageConfig;
}

bool THdlSourceFile::AddDependency(IHdlSourceFile* dependency) {
    return Dependencies->AddSourceFile(dependency, false);
}

IHdlSourceFile* THdlSourceFile::GetDependency(const ISFileName* name) {
    return Dependencies->GetSourceFile(name);
}

const IHdlSourceFile* THdlSourceFile::GetDependency(const ISFileName* name) const {
    return Dependencies->GetSourceFile(name);
}

bool THdlSourceFile::RemoveDependency(IHdlSourceFile* dependency) {
    return Dependencies->RemoveSourceFile(dependency);
}

bool THdlSourceFile::RemoveDependency(const ISFileName* name) {
    return Dependencies->RemoveSourceFile(name);
}

void THdlSourceFile::FlushDependencies() {
    Dependencies->Flush();
}

unsigned long long THdlSourceFile::GetHandleChangeCount() {
    return THdbSFileName::GetHandleChangeCount();
}

void DeleteWithDependencies(THdlSourceFile* source) {
    TIHdlSourceFileList* dependencies = source->GetDependencyList();
    delete source;
    delete dependencies;
}
