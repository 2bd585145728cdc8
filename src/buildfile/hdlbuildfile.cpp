#include "buildfile/hdlbuildfile.h"
#include "buildfile/buildfileparts.h"
#include "services/base/keeper.h"
#include "services/base/mystring.h"
#include "services/names/isfilename.h"
#include "settings/projectsimgeneralconfig.h"
#include "translation/v2vtranslationoptionslist.h"
#include <tuple>
#include <utility>

namespace {

constexpr const char* kUnknownVersion = "x.x";
constexpr std::size_t kReloadsThatLeaveValid = 2;

std::string TextOf(const char* text) {
    return text ? text : "";
}

}  // namespace

THdlBuildFile::THdlBuildFile() {
    Initialize();
}

THdlBuildFile::THdlBuildFile(const ISFileName* name) {
    Initialize();
    BuildFileName = name;
    // The reader calls the operations of this class, as derived ones are not alive yet.
    try {
        (void)THdlBuildFile::ReadFromFile();
    } catch (...) {
        // Nobody will have the build that could use or delete it.
        Parts->DeleteWhatWasRead();
        throw;
    }
}

THdlBuildFile::THdlBuildFile(const THdlBuildFile& other)
    : IBuildManager(other), IProjectComponent(other) {
    *this = other;
}

THdlBuildFile& THdlBuildFile::operator=(const THdlBuildFile& other) {
    if (this == &other) return *this;
    // All memory is taken before anything changes.
    auto values =
        std::tuple(other.PrecompiledLibraryGroups, other.PrecompiledLibraryNames, other.QmvVersion,
                   other.IdlVersion, other.VerilogUserDefines, other.VerilogOtherPlusOptions,
                   other.GenerationDestinationLibrary, other.DestinationLibrary, other.SnapshotName,
                   other.ReadError, other.Variables);
    auto former = Former;
    former.insert(other.Former.begin(), other.Former.end());
    if (Parts) former.insert(Parts);
    other.Parts->Join(this);
    Former.swap(former);
    if (Parts) LeaveParts();
    TakeParts(other.Parts);
    std::tie(PrecompiledLibraryGroups, PrecompiledLibraryNames, QmvVersion, IdlVersion,
             VerilogUserDefines, VerilogOtherPlusOptions, GenerationDestinationLibrary,
             DestinationLibrary, SnapshotName, ReadError, Variables) = std::move(values);
    TranslationOptions = other.TranslationOptions;
    IsGOFBuildFile = other.IsGOFBuildFile;
    IsElaborateOnly = other.IsElaborateOnly;
    SingleFileOnlyBuild = other.SingleFileOnlyBuild;
    BuildFileName = other.BuildFileName;
    TopLanguage = other.TopLanguage;
    HvlLanguage = other.HvlLanguage;
    HdlLanguage = other.HdlLanguage;
    TimeBase = other.TimeBase;
    OutputDiagram = other.OutputDiagram;
    SugarEngineDll = other.SugarEngineDll;
    ReadResult = other.ReadResult;
    BuildElementMet = other.BuildElementMet;
    GeneralConfiguration = other.GeneralConfiguration;
    return *this;
}

THdlBuildFile::~THdlBuildFile() {
    // Null when memory ran out before there were any.
    if (Parts) Parts->Leave(this);
    // What callers had put into these goes now as well.
    for (; !Reloaded.empty(); Reloaded.pop_front())
        if (Reloaded.front().use_count() == 1) Reloaded.front()->DeleteWhatWasRead();
}

void THdlBuildFile::Initialize() {
    const auto parts = std::make_shared<TBuildFileParts>(this);
    LetGoOfParts();
    TakeParts(parts);
    SetDefaults();
}

void THdlBuildFile::ClearAll() {
    KeepOwnGeneralConfiguration();
    Parts->Clear();
    ForgetFilesAndLanguages();
}

THdlBuildFileReadResults THdlBuildFile::Reload() {
    const ISFileName* name = BuildFileName;
    const auto parts = std::make_shared<TBuildFileParts>(this);
    Reloaded.push_back(Parts);
    LeaveParts();
    TakeParts(parts);
    SetDefaults();
    BuildFileName = name;
    const THdlBuildFileReadResults result = ReadFromFile();
    LetGoOfReloaded(kReloadsThatLeaveValid);
    return result;
}

// What ClearAll resets besides the sub-objects.
void THdlBuildFile::ForgetFilesAndLanguages() {
    GeneralConfiguration = nullptr;
    BuildFileName = nullptr;
    OutputDiagram = nullptr;
    SugarEngineDll = nullptr;
    TopLanguage = LANGUAGE_NONE;
    HvlLanguage = LANGUAGE_NONE;
    HdlLanguage = LANGUAGE_NONE;
    QmvVersion = kUnknownVersion;
    IdlVersion = kUnknownVersion;
    IsGOFBuildFile = false;
}

void THdlBuildFile::SetDefaults() {
    ForgetFilesAndLanguages();
    TranslationOptions = nullptr;
    IsElaborateOnly = false;
    SingleFileOnlyBuild = false;
    PrecompiledLibraryGroups.clear();
    PrecompiledLibraryNames.clear();
    TimeBase = TTimeBase(1);
    VerilogUserDefines.clear();
    VerilogOtherPlusOptions.clear();
    GenerationDestinationLibrary.clear();
    DestinationLibrary.clear();
    SnapshotName.clear();
    ReadResult = READ_NO_ERROR;
    ReadError = {};
    BuildElementMet = false;
    // Reading keeps the first value of a variable: a value of the former read must not win.
    Variables.clear();
}

void THdlBuildFile::TakeParts(const std::shared_ptr<TBuildFileParts>& parts) {
    Parts = parts;
    Parts->Join(this);
    if (OwnsConfigurations) Parts->OwnsConfigs = true;
}

// The parts stay valid: callers may hold pointers into them.
void THdlBuildFile::LetGoOfParts() {
    if (!Parts) return;
    Former.insert(Parts);
    LeaveParts();
}

std::shared_ptr<TBuildFileParts> THdlBuildFile::LeaveParts() {
    KeepOwnGeneralConfiguration();
    Parts->Leave(this);
    return std::move(Parts);
}

// The general configuration stays valid: a keeper of the parts has the one that the reader made,
// and one that a caller handed in is kept until the process ends, as the caller may still use it.
void THdlBuildFile::KeepOwnGeneralConfiguration() {
    if (OwnsConfigurations) KeepUntilExit(GeneralConfiguration);
}

bool THdlBuildFile::IsGeneralConfigurationNoted() const {
    return Parts->ConfigsRead.Has(GeneralConfiguration);
}

void THdlBuildFile::LetGoOfReloaded(std::size_t kept) {
    for (; Reloaded.size() > kept; Reloaded.pop_front()) {
        const auto& parts = Reloaded.front();
        for (const auto& share : parts->GetCallersShares())
            if (!share->IsEmpty()) Former.insert(share);
        if (parts.use_count() == 1) parts->DeleteWhatWasRead();
    }
}

void THdlBuildFile::OwnConfigurations() {
    OwnsConfigurations = true;
    Parts->OwnsConfigs = true;
}

void THdlBuildFile::DeleteConfigurations() {
    const bool isLast = Parts.use_count() == 1;
    if (!IsGeneralConfigurationNoted()) Parts->KeepInTheEnd(GeneralConfiguration, isLast);
    GeneralConfiguration = nullptr;
    if (isLast) Parts->DeleteConfigs();
}

std::string THdlBuildFile::GetProjectPath() const {
    return BuildFileName ? BuildFileName->GetParts(PART_DIRECTORY) : "";
}

void THdlBuildFile::SetQMVVersion(const char* version) {
    QmvVersion = TextOf(version);
}

void THdlBuildFile::SetIdlVersion(const char* version) {
    IdlVersion = TextOf(version);
}

void THdlBuildFile::SetDestinationLibrary(const char* library) {
    DestinationLibrary = TextOf(library);
}

void THdlBuildFile::SetGenerationDestinationLibrary(const char* library) {
    GenerationDestinationLibrary = TextOf(library);
}

void THdlBuildFile::SetSnapshotName(const char* name) {
    SnapshotName = TextOf(name);
}

void THdlBuildFile::SetVerilogUserDefines(const char* defines) {
    VerilogUserDefines = TextOf(defines);
}

void THdlBuildFile::SetVerilogOtherPlusOptions(const char* options) {
    VerilogOtherPlusOptions = TextOf(options);
}

bool THdlBuildFile::GetForceTopLevelComponents() const {
    return Parts->Components.GetForceTopLevelComponents();
}

void THdlBuildFile::SetForceTopLevelComponents(bool force) {
    Parts->Components.SetForceTopLevelComponents(force);
}

TProjectSimGeneralConfig* THdlBuildFile::GetGeneralConfiguration() const {
    return GeneralConfiguration;
}

void THdlBuildFile::SetGeneralConfiguration(TProjectSimGeneralConfig* configuration) {
    if (configuration != GeneralConfiguration) HandOver(configuration);
    GeneralConfiguration = configuration;
}

void THdlBuildFile::SetV2VOptions(TV2VTranslationOptionsList* options) {
    if (options != TranslationOptions && HandOver(options))
        for (const TV2VTranslationOption* option : *options) HandOver(option);
    TranslationOptions = options;
}

TProjectSimGeneralConfig* THdlBuildFile::GetOrMakeGeneralConfiguration() {
    if (GeneralConfiguration) return GeneralConfiguration;
    GeneralConfiguration = Parts->ConfigsRead.Keep(std::make_unique<TProjectSimGeneralConfig>(1));
    return GeneralConfiguration;
}

void THdlBuildFile::AddPseudoEnvironmentVariablesForFilename(const IFileName* file,
                                                             const char* prefix) {
    ::AddPseudoEnvironmentVariablesForFilename(&Variables, file, prefix);
}

void THdlBuildFile::AddSimTool(TBaseSimTool* tool) {
    Parts->SimTools.AddSimTool(tool);
}

bool THdlBuildFile::RemoveSimTool(THdlLanguage language) {
    return Parts->SimTools.RemoveSimTool(language);
}

TBaseSimTool* THdlBuildFile::GetSimTool(THdlLanguage language) {
    return Parts->SimTools.GetSimTool(language);
}

const TBaseSimTool* THdlBuildFile::GetSimTool(THdlLanguage language) const {
    return Parts->SimTools.GetSimTool(language);
}

std::vector<THdlLanguage> THdlBuildFile::GetSimToolLanguages() const {
    return Parts->SimTools.GetSimToolLanguages();
}

bool THdlBuildFile::AddComponentName(const char* entity, const char* architecture,
                                     const char* library, THdlLanguage language) {
    return Parts->Components.AddComponentName(entity, architecture, library, language);
}

TComponentNameList* THdlBuildFile::GetComponentNameList(THdlLanguage language) {
    return Parts->Components.GetComponentNameList(language);
}

const TComponentNameList* THdlBuildFile::GetComponentNameList(THdlLanguage language) const {
    return Parts->Components.GetComponentNameList(language);
}

bool THdlBuildFile::IsOutdated() const {
    return BuildFileName &&
           BuildFileName->IsFileModifiedSinceLastLoaded(kDefaultTimeStampKey, false);
}

bool THdlBuildFile::IsAtLeastOneSourceFileDirty() const {
    return Parts->SourceFileGroups.IsAnySourceFileModifiedSinceLastCompiled();
}

bool THdlBuildFile::IsCompilationDirty() const {
    return IsOutdated() || IsAtLeastOneSourceFileDirty();
}
