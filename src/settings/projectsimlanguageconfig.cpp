#include "settings/projectsimlanguageconfig.h"
#include "services/base/keeper.h"
#include "services/logging/binarylog.h"
#include "services/names/environment.h"
#include "services/names/isfilename.h"
#include "settings/directoryresolution.h"

namespace {

bool IsBlankName(const ISFileName* file) {
    return !file || !*file->Canonical(false);
}

}  // namespace

TProjectSimLanguageConfig::TProjectSimLanguageConfig(const TProjectSimLanguageConfig& other)
    : TProjectSimLanguageConfig(&other, 1) {}

TProjectSimLanguageConfig::TProjectSimLanguageConfig(const TProjectSimLanguageConfig& other, int)
    : TProjectSimLanguageConfig(&other, 1) {}

TProjectSimLanguageConfig::TProjectSimLanguageConfig(const TProjectSimLanguageConfig* other, int)
    : TProjectSimLanguageConfig() {
    if (other) *this = *other;
}

TProjectSimLanguageConfig& TProjectSimLanguageConfig::operator=(
    const TProjectSimLanguageConfig& other) = default;

TProjectSimLanguageConfig::~TProjectSimLanguageConfig() {
    ForgetKept(this);
}

std::string TProjectSimLanguageConfig::GetCorbaSimulatorName() const {
    return GetSimulatorNameFromType(Tool);
}

std::vector<std::string> TProjectSimLanguageConfig::GetCorbaIncludeDirectories() const {
    return GetIncludeDirectories();
}

std::vector<std::string> TProjectSimLanguageConfig::GetCorbaLibraryDirectories() const {
    return GetLibraryDirectories();
}

std::vector<std::string> TProjectSimLanguageConfig::GetCorbaLibraryExtensions() const {
    return GetLibraryExtensions();
}

std::string TProjectSimLanguageConfig::GetCorbaBuildOptionsString() const {
    return BuildOptions.Str();
}

std::string TProjectSimLanguageConfig::GetCorbaLinkerOptionsString() const {
    return LinkerOptions.Str();
}

std::string TProjectSimLanguageConfig::GetCorbaRuntimeOptionsString() const {
    return RuntimeOptions.Str();
}

void TProjectSimLanguageConfig::SetProjectFileName(const ISFileName* file, bool keepDirectories) {
    ProjectFile = file;
    if (keepDirectories || IsBlankName(file)) return;
    UpdateIncludeDirectoriesToCustom();
    UpdateLibraryDirectoriesToCustom();
}

void TProjectSimLanguageConfig::UpdateIncludeDirectoriesToCustom() {
    ResolveDirectories(IncludeDirectories);
}

void TProjectSimLanguageConfig::UpdateLibraryDirectoriesToCustom() {
    ResolveDirectories(LibraryDirectories);
}

void TProjectSimLanguageConfig::ResolveDirectories(TUniqueTextList& list) const {
    TUniqueTextList resolved;
    for (const std::string& directory : list.GetTexts())
        AddDirectory(resolved, directory.c_str(), true);
    list = std::move(resolved);
}

void TProjectSimLanguageConfig::InitializeDefaultIncludeDirectory(bool current) {
    if (!IncludeDirectories.IsEmpty()) return;
    if (current)
        AddIncludeDirectory("./", false);
    else if (!IsBlankName(ProjectFile))
        AddIncludeDirectory(ProjectFile->GetPathOnly(), true);
}

bool TProjectSimLanguageConfig::AddDirectory(TUniqueTextList& list, const char* directory,
                                             bool resolve) const {
    if (HasOrvaneEnvVariable(directory) || !resolve || !ProjectFile)
        return directory && list.AddStringToVector(directory);
    std::string resolved = ResolveDirectoryAgainst(directory, BaseDirectoryOf(ProjectFile).c_str());
    return directory && list.AddStringToVector(std::move(resolved));
}

bool TProjectSimLanguageConfig::AddIncludeDirectory(const char* directory, bool resolve) {
    return AddDirectory(IncludeDirectories, directory, resolve);
}

bool TProjectSimLanguageConfig::AddLibraryDirectory(const char* directory, bool resolve) {
    return AddDirectory(LibraryDirectories, directory, resolve);
}

bool TProjectSimLanguageConfig::AddLibraryExtension(const char* extension) {
    return LibraryExtensions.AddStringToVector(TMyString(extension).Str());
}

bool TProjectSimLanguageConfig::RemoveDirectory(TUniqueTextList& list,
                                                const char* directory) const {
    if (!ProjectFile) return list.RemoveStringFromVector(TMyString(directory).Str());
    const std::string resolved = ResolveDirectoryAgainst(directory, ProjectFile->GetPathOnly());
    return directory && list.RemoveStringFromVector(resolved);
}

bool TProjectSimLanguageConfig::RemoveIncludeDirectoy(const char* directory) {
    return RemoveDirectory(IncludeDirectories, directory);
}

bool TProjectSimLanguageConfig::RemoveLibraryDirectory(const char* directory) {
    return RemoveDirectory(LibraryDirectories, directory);
}

bool TProjectSimLanguageConfig::RemoveLibraryExtension(const char* extension) {
    return LibraryExtensions.RemoveStringFromVector(TMyString(extension).Str());
}

void TProjectSimLanguageConfig::ClearIncludeDirectory() {
    IncludeDirectories.Clear();
}

void TProjectSimLanguageConfig::ClearLibraryDirectory() {
    LibraryDirectories.Clear();
}

void TProjectSimLanguageConfig::ClearLibraryExtension() {
    LibraryExtensions.Clear();
}

const std::vector<std::string>& TProjectSimLanguageConfig::GetIncludeDirectories() const {
    return IncludeDirectories.GetTexts();
}

const std::vector<std::string>& TProjectSimLanguageConfig::GetLibraryDirectories() const {
    return LibraryDirectories.GetTexts();
}

const std::vector<std::string>& TProjectSimLanguageConfig::GetLibraryExtensions() const {
    return LibraryExtensions.GetTexts();
}

void TProjectSimLanguageConfig::SetTool(TSimulatorType tool) {
    LogDiagnostic(TBinaryLogMessageOneArg("[Default] --> TProjectSimLanguageConfig::SetTool(%1%)",
                                          GetSimulatorNameFromType(tool)));
    Tool = tool;
    LogDiagnostic("[Default] <-- TProjectSimLanguageConfig::SetTool(..)");
}

void TProjectSimLanguageConfig::SetBuildOptions(const char* options) {
    TypedBuildOptions = TMyString(options);
    BuildOptions = TypedBuildOptions;
}
