#include "flows/buildedit.h"
#include "buildfile/hdlbuildfilexmllist.h"
#include "flows/buildattributes.h"
#include "flows/editrules.h"
#include "flows/textreaders.h"
#include "services/hdl/hdllanguagetable.h"
#include "services/names/isfilename.h"
#include "services/names/recordedstatus.h"
#include "settings/projectsimgeneralconfig.h"
#include "settings/projectsimlanguageconfig.h"
#include <utility>
#include <vector>

namespace {

void Push(TXMLList* document, TElement::ElemTypes type, const char* name) {
    document->Push(type, name, {});
}

void PushStart(const THdlBuildFile& build, TXMLList* document) {
    std::vector<std::pair<const char*, std::string>> values;
    for (const TBuildAttribute& attribute : GetBuildAttributes()) {
        std::string value = attribute.Get(build);
        if (attribute.Kind != BUILD_FLAG || value == "true")
            values.emplace_back(attribute.Name, std::move(value));
    }
    const std::vector<TAttributeView> attributes(values.begin(), values.end());
    document->Push(TElement::START, "HdlBuildFile", {}, attributes);
}

// They are written only where there are general settings, and read in any case.
void PushSimulators(THdlBuildFile& build, TXMLList* document) {
    TProjectSimGeneralConfig* const own = build.GetGeneralConfiguration();
    TProjectSimGeneralConfig general;
    build.SetGeneralConfiguration(&general);
    build.WriteExternalConfigurations(document);
    build.SetGeneralConfiguration(own);
}

using TLanguageSettings = std::map<THdlLanguage, TProjectSimLanguageConfig>;

TLanguageSettings CopyLanguageSettings(const THdlBuildFile& build) {
    TLanguageSettings settings;
    for (const THdlLanguage language : GetStoredLanguages())
        if (const TProjectSimLanguageConfig* const own = build.GetProjectLanguageConfig(language))
            settings.emplace(language, *own);
    return settings;
}

void PushLanguageSettings(TLanguageSettings& settings, TXMLList* document) {
    constexpr const char* kList = "ProjectLanguageConfigurationList";
    Push(document, TElement::START, kList);
    for (auto& [language, own] : settings) {
        const TAttributeView attributes[] = {{"Language", GetStringFromHdlLanguage(language)}};
        document->Push(TElement::START, "LanguageSettings", {}, attributes);
        own.WriteToProjectFile(document, language, false, false, false);
        Push(document, TElement::END, "LanguageSettings");
    }
    Push(document, TElement::END, kList);
}

void PushAll(const TXMLList& elements, TXMLList* document) {
    for (DListIterator<TElement*> place(elements); place.NotAtTail(); ++place) {
        const TElement& element = *place.Current();
        const auto& attributes = element.GetAttributes();
        document->Push(element.ElemType, element.Name.View(), element.Text.View(),
                       std::vector<TAttributeView>(attributes.begin(), attributes.end()));
    }
}

// What comes behind the sources.
void PushEnd(THdlBuildFile& build, TXMLList* document) {
    build.WritePseudoEnvironmentVariables(document);
    Push(document, TElement::END, "HdlBuildFile");
}

}  // namespace

bool TBuildEdit::ReadToChange(TXMLReadError* error) {
    File.TakeLock();
    return Read(error);
}

bool TBuildEdit::Read(TXMLReadError* error) {
    auto build = std::make_unique<TSimWrapHdlBuildFile>();
    if (!File.Read(error) || !ReadBuildText(&File, build.get(), error)) return false;
    Build = std::move(build);
    RememberAsRead();
    return true;
}

void TBuildEdit::RememberAsRead() {
    SourcesBefore = TSourceLists(*Build, &Libraries);
    RestBefore = PrintRest(*Build);
    Base.Flush(true);
    PushFront(*Build, &Base);
    LanguagesBefore = CopyLanguageSettings(*Build);
    VariablesBefore = *Build->GetPseudoEnvironmentVariables();
}

void TBuildEdit::GoOn() {
    if (!Changed) return;
    File.GoOn();
    IsNew = false;
    Changed = false;
    Found.reset();
    SourceChanges.reset();
    RememberAsRead();
}

std::string TBuildEdit::Make(THdlLanguage language, bool isLocked) {
    TXMLReadError error;
    if (isLocked) File.TakeLock();
    (void)File.Read(&error);
    if (File.WasThere()) return kExists;
    if (!error.Missing) return error.Reason;
    IsNew = true;
    Build = std::make_unique<TSimWrapHdlBuildFile>();
    Build->SetBuildFileName(File.GetFile());
    Build->SetTopLanguage(language);
    Build->SetHvlLanguage(language);
    Build->SetHdlLanguage(language);
    Build->SetGeneralConfiguration(new TProjectSimGeneralConfig);
    return "";
}

TProjectSimLanguageConfig& TBuildEdit::GetOrMakeLanguageSettings(THdlLanguage language) {
    if (!Build->GetProjectLanguageConfig(language)) {
        TProjectSimLanguageConfig settings;
        settings.SetProjectFileName(File.GetFile());
        Build->AddLanguageConfig(language, &settings);
        // In both streams, and not in the document: so they come without their defaults.
        LanguagesBefore.emplace(language, settings);
    }
    return *Build->GetProjectLanguageConfig(language);
}

// The build's own element, up to the settings of languages.
void TBuildEdit::PushFront(THdlBuildFile& build, TXMLList* document) const {
    document->SetFileName(File.GetFile()->Canonical(false));
    PushStart(build, document);
    build.WriteTopLevelComponentNames(document);
    PushSimulators(build, document);
    build.WriteGeneralSettings(document);
}

// Translator options and all.
std::string TBuildEdit::PrintRest(THdlBuildFile& build) const {
    TXMLList document;
    PushFront(build, &document);
    TLanguageSettings languages = CopyLanguageSettings(build);
    PushLanguageSettings(languages, &document);
    build.WriteV2VOptions(&document);
    PushEnd(build, &document);
    std::string text;
    document.WriteToText(&text, nullptr);
    return text;
}

std::string TBuildEdit::PrintWhole(std::string* document) {
    THdlBuildFileXMLList list(nullptr);
    list.SetFileName(File.GetFile()->Canonical(false));
    Build->WriteFile(&list);
    std::string reason;
    list.WriteToText(document, &reason);
    return reason;
}

bool TBuildEdit::IsDifferent() {
    SourcesAfter = TSourceLists(*Build, &Libraries);
    return IsNew || PrintRest(*Build) != RestBefore || SourcesAfter != SourcesBefore;
}

std::string TBuildEdit::FindEdits() {
    SourcesAfter = TSourceLists(*Build, &Libraries);
    SourceChanges.emplace(SourcesBefore, SourcesAfter);
    const std::string rest = PrintRest(*Build);
    Changed = IsNew || rest != RestBefore || !SourceChanges->GetChanges().empty();
    Found.reset();
    if (!Changed) return "";
    const auto isAsWanted = [&](const std::string& document) { return IsAsWanted(document, rest); };
    if (IsNew) {
        std::string document;
        std::string reason = PrintWhole(&document);
        if (!reason.empty()) return reason;
        return isAsWanted(document) ? File.Make(document)
                                    : "a reader would find something else in the build";
    }
    TXMLList base;
    PushAll(Base, &base);
    TXMLList wanted;
    PushFront(*Build, &wanted);
    PushLanguageSettings(LanguagesBefore, &base);
    TLanguageSettings languages = CopyLanguageSettings(*Build);
    PushLanguageSettings(languages, &wanted);
    SourceChanges->Push(File.GetFile(), Libraries, &base, &wanted);
    PushEnd(*Build, &wanted);
    TPseudoVariables& variables = *Build->GetPseudoEnvironmentVariables();
    variables.swap(VariablesBefore);
    PushEnd(*Build, &base);
    variables.swap(VariablesBefore);
    return File.Change(base, wanted, MakeBuildFileRules(File.GetFile()), isAsWanted);
}

bool TBuildEdit::IsRead(const std::string& document, THdlBuildFile* build) const {
    if (!ReadBuildText(document, File.GetFile(), build, nullptr)) return false;
    const THdlBuildFileReadResults result = build->GetReadResult();
    return build->HasBuildElement() && (result == READ_NO_ERROR || result == READ_FILES_MISSING);
}

bool TBuildEdit::IsAsWanted(const std::string& document, const std::string& rest) {
    // What is on the disk has been seen when the build was read.
    const TRecordsTrusted trusted;
    Found = std::make_unique<TSimWrapHdlBuildFile>();
    if (!IsRead(document, Found.get())) return false;
    if (TSourceLists(*Found, &Libraries) != SourcesAfter) return false;
    const std::string found = PrintRest(*Found);
    return found == rest || found == ReadRestOfSave();
}

// Some values, such as options of a simulator, read back as something else, whoever saves them.
std::string TBuildEdit::ReadRestOfSave() {
    TXMLList wanted;
    PushFront(*Build, &wanted);
    TLanguageSettings languages = CopyLanguageSettings(*Build);
    PushLanguageSettings(languages, &wanted);
    Build->WriteV2VOptions(&wanted);
    PushEnd(*Build, &wanted);
    std::string document;
    TSimWrapHdlBuildFile build;
    if (!wanted.WriteToText(&document, nullptr) || !IsRead(document, &build)) return {};
    return PrintRest(build);
}
