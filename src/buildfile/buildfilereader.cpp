#include "buildfile/buildfileparts.h"
#include "buildfile/hdlbuildfile.h"
#include "buildfile/hdlbuildfilexmllist.h"
#include "services/base/booltext.h"
#include "services/hdl/hdllanguage.h"
#include "services/logging/messagebox.h"
#include "services/names/isfilename.h"
#include "services/xml/xmlstream.h"
#include "settings/projectsimgeneralconfig.h"
#include "settings/projectsimlanguageconfig.h"
#include "translation/v2voptionelement.h"
#include "translation/v2vtranslationoptions.h"
#include <iterator>
#include <memory>

namespace {

constexpr const char* kErrorTexts[] = {
    "Build File: No error.",
    "Build File: Project Attributes failed to load.",
    "Build File: Component Names failed to load.",
    "Build File: External Configurations failed to load.",
    "Build File: Error reading General Settings.",
    "Build File: Error reading the Project Settings.",
    "Build File: Error reading V2V Options.",
    "Build File: One or more source files failed to load.",
    "Build File: Build Variables failed to load.",
    "Build File: Missing file(s) on load.",
};

/// The text of an attribute without surrounding white space.
TMyString TrimmedAttribute(const TElement& element, const char* name) {
    TMyString text = element.GetAttribute(name);
    text.Trim(1, 0);
    return text;
}

/// The unit of an attribute; `present` when the attribute is missing, blank or unknown.
TUnit ReadTimeUnit(const TElement& element, const char* name, TUnit present) {
    TTimeBase::GetTimeUnitFromString(TrimmedAttribute(element, name), &present);
    return present;
}

void ReadTimeBase(const TElement& element, TTimeBase* timeBase) {
    timeBase->SetBaseTimeUnit(ReadTimeUnit(element, "BaseTimeUnit", timeBase->GetBaseTimeUnit()));
    timeBase->SetDisplayTimeUnit(
        ReadTimeUnit(element, "DisplayTimeUnit", timeBase->GetDisplayTimeUnit()));
}

/// Deletes a list with its options.
struct TOptionsListEnd {
    void operator()(TV2VTranslationOptionsList* options) const {
        options->Flush();
        delete options;
    }
};
using TOwnOptionsList = std::unique_ptr<TV2VTranslationOptionsList, TOptionsListEnd>;

/// From anywhere inside a "LanguageSettings" element past its end.
void LeaveLanguageSettings(TElementIterator& element) {
    while (element.NotAtTail() && !IsAtEnd(element, "LanguageSettings")) ++element;
    ++element;
}

}  // namespace

const char* THdlBuildFile::GetErrorString(THdlBuildFileReadResults result) {
    if (result < 0 || result >= static_cast<int>(std::size(kErrorTexts)))
        return "Error not defined.";
    return kErrorTexts[result];
}

THdlBuildFileReadResults THdlBuildFile::ReadFromFile() {
    ReadResult = READ_NO_ERROR;
    ReadError = {};
    BuildElementMet = false;
    if (!BuildFileName) return ReadResult;
    const std::string path = BuildFileName->Canonical(false);
    // Looked at first: a save of somebody else's during the read counts as one after it.
    const TFileStatus status = LookAtFile(path);
    THdlBuildFileXMLList document(this);
    document.SetWalkedOnce(true);
    // A missing or malformed file leaves the build as it was: only ReadError tells.
    document.ReadFile(BuildFileName->GetParts(PART_ALL));
    ReadError = document.GetReadError();
    BuildFileName->UpdateTimeFileLastLoaded(kDefaultTimeStampKey);
    Parts->NoteFile(path, status);
    CompilePrecompiledLibraryGroup();
    return ReadResult;
}

bool THdlBuildFile::ReadAttributes(DListIterator<TElement*>& element) {
    if (!element.NotAtTail()) return true;
    const TElement& start = *element.Current();
    SetTopLanguage(GetHdlLanguageFromString(start.GetAttribute("TopLevelLanguage")));
    SetQMVVersion(start.GetAttribute("QmvVersion"));
    SetIdlVersion(start.GetAttribute("IdlVersion"));
    SetHvlLanguage(GetHdlLanguageFromString(start.GetAttribute("HvlLanguage")));
    SetHdlLanguage(GetHdlLanguageFromString(start.GetAttribute("HdlLanguage")));
    ReadTimeBase(start, &TimeBase);
    if (const TMyString dll = TrimmedAttribute(start, "SugarEngineDll"); !dll.IsEmpty())
        SetSugarEngineDll(ISFileName::NewISFileName(ResolveAgainstProject(dll).c_str()));
    SetGenerationDestinationLibrary(start.GetAttribute("GenerationDestinationLibrary"));
    SetDestinationLibrary(start.GetAttribute("DestinationLibrary"));
    SetSnapshotName(start.GetAttribute("SnapshotName"));
    if (const char* single = start.GetAttribute("SingleFileOnlyBuild"); *single)
        SetSingleFileOnlyBuild(ConvertStringBoolToBoolean(single));
    ++element;
    return true;
}

bool THdlBuildFile::ReadTopLevelComponentNames(DListIterator<TElement*>& element) {
    if (IsAtStart(element, "TopLevelComponents"))
        return Parts->Components.ReadTopLevelComponentNames(element);
    ReadResult = READ_COMPONENT_NAMES_FAILED;
    return element.NotAtTail();
}

bool THdlBuildFile::ReadExternalConfigurations(DListIterator<TElement*>& element) {
    if (Parts->SimTools.ReadFromFile(element)) return true;
    ReadResult = READ_EXTERNAL_CONFIGURATIONS_FAILED;
    return false;
}

bool THdlBuildFile::ReadGeneralSettings(DListIterator<TElement*>& element) {
    TProjectSimGeneralConfig* general = GetOrMakeGeneralConfiguration();
    const bool done = element.NotAtTail() && general->ReadFromFile(element.Current());
    if (!done) ReadResult = READ_GENERAL_SETTINGS_FAILED;
    ++element;
    return done;
}

bool THdlBuildFile::ReadProjectSettings(DListIterator<TElement*>& element) {
    if (IsAtStart(element, "ProjectLanguageConfigurationList")) ++element;
    while (IsAtStart(element, "LanguageSettings")) {
        const TMyString language = element.Current()->GetAttribute("Language");
        if (language.IsEmpty()) {
            ReadResult = READ_PROJECT_SETTINGS_FAILED;
            return false;
        }
        TProjectSimLanguageConfig* config =
            GetOrMakeLanguageConfig(GetHdlLanguageFromString(language));
        if (!config->ReadFromFile(element, BuildFileName)) {
            // The other languages' settings are still good.
            ReadResult = READ_PROJECT_SETTINGS_FAILED;
            LeaveLanguageSettings(element);
        }
        SkipEnd(element);
    }
    return true;
}

bool THdlBuildFile::ReadTranslationOptions(DListIterator<TElement*>& element, bool isVerilog2Vhdl) {
    if (!TranslationOptions) MakeTranslationOptions(isVerilog2Vhdl);
    ++element;
    if (TranslationOptions->ReadFromFile(element)) return true;
    ReadResult = READ_TRANSLATION_OPTIONS_FAILED;
    return false;
}

void THdlBuildFile::MakeTranslationOptions(bool isVerilog2Vhdl) {
    TOwnOptionsList made(
        new TV2VTranslationOptionsList(nullptr, isVerilog2Vhdl ? "Verilog2VhdlTranslationOptions"
                                                               : "Vhdl2VerilogTranslationOptions"));
    if (isVerilog2Vhdl)
        TV2VTranslationOptionsList::PopulateWithDefaultVerilog2VhdlOptions(made.get());
    else
        TV2VTranslationOptionsList::PopulateWithDefaultVhdl2VerilogOptions(made.get());
    // Kept first, so deleted first: the list's destructor uses the options.
    Parts->OptionsRead.Keep(made.get());
    for (const void* option : *made)
        Parts->OptionsRead.Keep(option, [](const void* kept) {
            DeleteOption(const_cast<TV2VTranslationOption*>(
                static_cast<const TV2VTranslationOption*>(kept)));
        });
    TranslationOptions = made.release();
}

bool THdlBuildFile::ReadVerilog2VhdlTranslationOptions(DListIterator<TElement*>& element) {
    return ReadTranslationOptions(element, true);
}

bool THdlBuildFile::ReadVhdl2VerilogTranslationOptions(DListIterator<TElement*>& element) {
    return ReadTranslationOptions(element, false);
}

bool THdlBuildFile::ReadOutputDiagram(DListIterator<TElement*>& element) {
    ++element;
    const std::string path = TrimmedText(element);
    if (!path.empty())
        SetOutputDiagram(ISFileName::NewISFileName(ResolveAgainstProject(path.c_str()).c_str()));
    return true;
}

bool THdlBuildFile::ReadSourceFileGroups(DListIterator<TElement*>& element) {
    // A copy has a directory of its own.
    Parts->SourceFileOwner.SetBuildManager(this);
    const ISFileName* handle = GetInnermostHandle(BuildFileName);
    if (!IsSharedHandle(handle)) handle = nullptr;
    const bool asksForAll = !IsBuildOfTheLibrary(*this);
    if (!Parts->SourceFileGroups.ReadSourceFileGroups(element, handle, asksForAll)) {
        ReadResult = READ_SOURCE_FILES_FAILED;
        return false;
    }
    if (Parts->SourceFileGroups.GetFilesMissing()) ReadResult = READ_FILES_MISSING;
    return true;
}

bool THdlBuildFile::ReadPseudoEnvironmentVariables(DListIterator<TElement*>& element) {
    if (!IsAtStart(element, "BuildFileVariables")) {
        ReadResult = READ_VARIABLES_FAILED;
        return false;
    }
    ++element;
    while (IsAtStart(element, "Variable")) {
        const TElement& variable = *element.Current();
        Variables.emplace(variable.GetAttribute("Name"), variable.GetAttribute("Value"));
        ++element;
        SkipEnd(element);
    }
    SkipEnd(element);
    return true;
}

void THdlBuildFile::SetFilesMissingOnRead(bool missing) {
    if (missing) ReadResult = READ_FILES_MISSING;
    Fileservices::GetMessageBox()->ShowMessage("Files Missing on load", "Build File", 0);
}
