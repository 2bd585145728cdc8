#include "buildfile/buildfileparts.h"
#include "buildfile/hdlbuildfile.h"
#include "buildfile/hdlbuildfilexmllist.h"
#include "projectfiles/sourcename.h"
#include "services/base/booltext.h"
#include "services/files/filelock.h"
#include "services/files/filestatus.h"
#include "services/hdl/hdllanguagetable.h"
#include "services/logging/loglock.h"
#include "services/logging/usermessages.h"
#include "services/names/isfilename.h"
#include "services/xml/xmlstream.h"
#include "settings/projectsimgeneralconfig.h"
#include "settings/projectsimlanguageconfig.h"
#include "translation/v2voptionelement.h"
#include "translation/v2vtranslationoptions.h"
#include <algorithm>

namespace {

/// Whether the test builder drives the simulation whatever the build's own top language is.
bool IsTestBuilderForced(const THdlBuildFile& build) {
    const std::vector<THdlLanguage> languages = build.GetSimToolLanguages();
    if (std::find(languages.begin(), languages.end(), LANGUAGE_TESTBUILDER) == languages.end())
        return false;
    const TProjectSimLanguageConfig* config = build.GetProjectLanguageConfig(LANGUAGE_TESTBUILDER);
    return config && (config->IsForceTopLevel() || languages.size() == 1);
}

/// Whether no code of a caller's can see the document: an override may look at what was pushed
/// before, or bring in options of its own.
bool IsWrittenByTheLibrary(const THdlBuildFile& build, const TV2VTranslationOptionsList* options) {
    return IsBuildOfTheLibrary(build) && (!options || AreOptionsOfTheLibrary(*options));
}

/// Not a diagnostic line: something of the user's is lost.
void LogReplacedChanges(const std::string& path) {
    const std::string text = "\"" + path + "\" was changed since it was read, and is replaced";
    const TLogLock lock;
    TBinaryLogFile::GetInstance()->Write(text.c_str(), "", 0);
}

}  // namespace

bool THdlBuildFile::WriteToFile() {
    if (!BuildFileName) return false;
    const std::string path = BuildFileName->Canonical(false);
    const TMessagesHeldBack messages;
    const TFileLock lock(path.c_str());
    if (!lock.IsHeld()) {
        TellSaveFailure(path, lock.GetReason());
        return false;
    }
    const bool replacesChanges = Parts->IsOtherThanNoted(path);
    THdlBuildFileXMLList document(this);
    document.SetPrintedAtOnce(IsWrittenByTheLibrary(*this, TranslationOptions));
    if (!document.WriteFile(BuildFileName->GetParts(PART_ALL))) return false;
    Parts->NoteFile(path, LookAtFile(path));
    if (replacesChanges) LogReplacedChanges(path);
    return true;
}

void THdlBuildFile::WriteFile(THdlBuildFileXMLList* document) {
    if (!document) return;
    const bool forced = IsTestBuilderForced(*this);
    const THdlLanguage topLanguage = forced ? LANGUAGE_TESTBUILDER : GetTopLanguage();
    const THdlLanguage hdlLanguage = forced ? LANGUAGE_TESTBUILDER : GetHdlLanguage();

    TAttributeList attributes;
    attributes.Psh("TopLevelLanguage", GetStringFromHdlLanguage(topLanguage));
    attributes.Psh("QmvVersion", QmvVersion.c_str());
    attributes.Psh("IdlVersion", IdlVersion.c_str());
    attributes.Psh("HvlLanguage", GetStringFromHdlLanguage(HvlLanguage));
    attributes.Psh("HdlLanguage", GetStringFromHdlLanguage(hdlLanguage));
    attributes.Psh("BaseTimeUnit", TimeBase.GetBaseTimeUnitStr());
    attributes.Psh("DisplayTimeUnit", TimeBase.GetDisplayTimeUnitStr());
    if (SugarEngineDll)
        attributes.Psh("SugarEngineDll", RelativePath(SugarEngineDll, BuildFileName).c_str());
    attributes.Psh("GenerationDestinationLibrary", GenerationDestinationLibrary.c_str());
    attributes.Psh("DestinationLibrary", DestinationLibrary.c_str());
    attributes.Psh("SnapshotName", SnapshotName.c_str());
    if (SingleFileOnlyBuild) attributes.PushBool("SingleFileOnlyBuild", true);
    document->Psh("HdlBuildFile", &attributes, TElement::START, nullptr);

    WriteTopLevelComponentNames(document);
    WriteExternalConfigurations(document);
    WriteGeneralSettings(document);
    WriteProjectSettings(document);
    WriteV2VOptions(document);
    if (OutputDiagram)
        PushTextElement(document, "OutputDiagram", RelativePath(OutputDiagram, BuildFileName));
    WriteSourceFileGroups(document, topLanguage);
    WritePseudoEnvironmentVariables(document);
    PushEnd(document, "HdlBuildFile");
}

void THdlBuildFile::WriteTopLevelComponentNames(TXMLList* document) {
    Parts->Components.WriteTopLevelComponentNames(document);
}

void THdlBuildFile::WriteExternalConfigurations(TXMLList* document) {
    if (GeneralConfiguration) Parts->SimTools.WriteToFile(document);
}

void THdlBuildFile::WriteGeneralSettings(TXMLList* document) {
    if (GeneralConfiguration) GeneralConfiguration->WriteToProjectFile(document);
}

void THdlBuildFile::WriteProjectSettings(TXMLList* document) {
    const bool lineDebug =
        GeneralConfiguration && GeneralConfiguration->GetEnableSimulatorDebugging();
    PushStart(document, "ProjectLanguageConfigurationList");
    for (const THdlLanguage language : GetStoredLanguages()) {
        TProjectSimLanguageConfig* config = GetProjectLanguageConfig(language);
        if (!config) continue;
        PushStart(document, "LanguageSettings", {{"Language", GetStringFromHdlLanguage(language)}});
        config->WriteToProjectFile(document, language, true, lineDebug, IsElaborateOnly);
        PushEnd(document, "LanguageSettings");
    }
    PushEnd(document, "ProjectLanguageConfigurationList");
}

void THdlBuildFile::WriteV2VOptions(TXMLList* document) {
    if (TranslationOptions) TranslationOptions->WriteToFile(document);
}

void THdlBuildFile::WriteSourceFileGroups(TXMLList* document, THdlLanguage topLanguage) {
    Parts->SourceFileGroups.WriteSourceFileGroups(document, BuildFileName, topLanguage,
                                                  GeneralConfiguration);
}

void THdlBuildFile::WritePseudoEnvironmentVariables(TXMLList* document) {
    if (Variables.empty()) return;
    PushStart(document, "BuildFileVariables");
    for (const auto& [name, value] : Variables) {
        PushStart(document, "Variable", {{"Name", name}, {"Value", value}});
        PushEnd(document, "Variable");
    }
    PushEnd(document, "BuildFileVariables");
}
