#include "settings/projectsimconfig.h"
#include "services/hdl/simtypelanguagemap.h"
#include "services/logging/binarylog.h"
#include "services/names/isfilename.h"
#include "services/xml/xmlstream.h"
#include "settings/projectsettingsconfigurations.h"
#include "settings/storedlanguages.h"

namespace {

constexpr const char* kValidLanguage =
    "language == LANGUAGE_VERILOG || language == LANGUAGE_VHDL || "
    "language == LANGUAGE_BLUESPECVERILOG || language == LANGUAGE_SYSTEMC || "
    "language == LANGUAGE_CPLUSPLUS || language == LANGUAGE_TESTBUILDER";

/// The INI sections begin with the configuration's name.
std::string GeneralSection(const std::string& name) {
    return name + "_GeneralConfiguration";
}

std::string LanguageSection(const std::string& name, THdlLanguage language) {
    return name + GetStringFromHdlLanguage(language) + "SettingsConfiguration";
}

void ResetLists(TProjectSimLanguageConfig& settings, THdlLanguage language) {
    // The include directories of C++ code are the user's own.
    if (language == LANGUAGE_CPLUSPLUS || language == LANGUAGE_TESTBUILDER) return;
    if (language == LANGUAGE_VERILOG) {
        settings.ClearLibraryDirectory();
        settings.ClearLibraryExtension();
        settings.AddLibraryDirectory("lib/verilog", false);
        settings.AddLibraryDirectory("lib", false);
        settings.AddLibraryExtension(".v");
        settings.AddLibraryExtension(".vo");
    }
    settings.ClearIncludeDirectory();
    settings.InitializeDefaultIncludeDirectory(true);
}

}  // namespace

TProjectSimConfig::TProjectSimConfig(bool debug) {
    ResetSettingsToDefaults(debug);
}

TProjectSimConfig::TProjectSimConfig(const TProjectSimConfig& other) : TProjectSimConfig(&other) {}

TProjectSimConfig::TProjectSimConfig(const TProjectSimConfig* other) : TProjectSimConfig(nullptr) {
    if (other) *this = *other;
}

TProjectSimConfig& TProjectSimConfig::operator=(const TProjectSimConfig& other) {
    if (this == &other) return *this;
    Name = other.Name;
    General = other.General;
    Languages.clear();
    for (const auto& [language, settings] : other.Languages)
        Languages[language] = std::make_unique<TProjectSimLanguageConfig>(*settings);
    return *this;
}

TProjectSimConfig::~TProjectSimConfig() = default;

ICorbaProjectSimLanguageSettingsImpl* TProjectSimConfig::GetCorbaProjectSimLanguageSettings(
    const char* language) {
    return GetProjectLanguageConfig(GetHdlLanguageFromString(language));
}

void TProjectSimConfig::SetName(const char* name) {
    Name = TMyString(name).Str();
}

void TProjectSimConfig::SetGeneralConfiguration(const TProjectSimGeneralConfig* general) {
    if (general) SetGeneralConfiguration(*general);
}

TProjectSimLanguageConfig* TProjectSimConfig::GetProjectLanguageConfig(THdlLanguage language) {
    const auto found = Languages.find(language);
    return found == Languages.end() ? nullptr : found->second.get();
}

const TProjectSimLanguageConfig* TProjectSimConfig::GetProjectLanguageConfig(
    THdlLanguage language) const {
    const auto found = Languages.find(language);
    return found == Languages.end() ? nullptr : found->second.get();
}

void TProjectSimConfig::SetProjectSettings(THdlLanguage language,
                                           TProjectSimLanguageConfig* settings) {
    if (!settings) return;
    if (!IsSettingsLanguage(language)) {
        static TCheckSite site(kValidLanguage, ProjectSettingsConfigurations::kSource,
                               ProjectSettingsConfigurations::kStoreInvalidLanguage);
        site.Report();
    }
    const auto found = Languages.find(language);
    if (found != Languages.end() && found->second.get() == settings) return;
    // It is handed over, whether there is memory for its place or not.
    std::unique_ptr<TProjectSimLanguageConfig> given(settings);
    Languages[language] = std::move(given);
}

void TProjectSimConfig::SetProjectFileName(const ISFileName* file) {
    for (const auto& entry : Languages) entry.second->SetProjectFileName(file);
}

void TProjectSimConfig::Reset(bool debug) {
    Name.clear();
    Languages.clear();
    ResetSettingsToDefaults(debug);
}

void TProjectSimConfig::ResetSettingsToDefaults(bool debug) {
    for (const THdlLanguage language : GetStoredLanguages()) {
        Languages[language] = std::make_unique<TProjectSimLanguageConfig>();
        ResetLanguageSettingsToDefaults(language, debug);
    }
    General.SetDefaults();
}

void TProjectSimConfig::ResetLanguageSettingsToDefaults(THdlLanguage language, bool debug) {
    if (!IsSettingsLanguage(language)) {
        static TCheckSite site(kValidLanguage, ProjectSettingsConfigurations::kSource,
                               ProjectSettingsConfigurations::kResetInvalidLanguage);
        site.Report();
    }
    TProjectSimLanguageConfig* settings = GetProjectLanguageConfig(language);
    if (!settings) {
        static TCheckSite site("simSetting", ProjectSettingsConfigurations::kSource,
                               ProjectSettingsConfigurations::kResetMissingLanguage);
        site.Report();
        return;
    }
    settings->SetTool(TSimTypeLanguageMap::instance()->GetDefaultSimulator(language));
    ResetLists(*settings, language);
    settings->ResetDefaultSettingsOptions(language, debug);
}

bool TProjectSimConfig::ReadFromFile(TElementIterator& element, const ISFileName* projectFile) {
    if (!IsAtStart(element, "ProjectSettingsConfiguration")) {
        static TCheckSite site(
            "(elemI.NotAtTail() && (elemI.Current()->ElemType == TElement::START) && "
            "!strcmp(elemI.Current()->Name, \"ProjectSettingsConfiguration\") ) && "
            "\"TProjectSimConfig::ReadFromFile was called on an invalid element.\"",
            ProjectSettingsConfigurations::kSource,
            ProjectSettingsConfigurations::kReadInvalidElement);
        site.Report();
        return false;
    }
    SetName(element.Current()->GetAttribute("ConfigurationName"));
    for (++element; element.NotAtTail();) {
        if (IsAtStart(element, "LanguageSettings")) {
            if (!ReadLanguage(element, projectFile)) return false;
            continue;
        }
        if (IsAtStart(element, "GeneralConfiguration")) General.ReadFromFile(element.Current());
        const bool isDone = IsAtEnd(element, "ProjectSettingsConfiguration");
        ++element;
        if (isDone) return true;
    }
    return false;
}

bool TProjectSimConfig::ReadLanguage(TElementIterator& element, const ISFileName* projectFile) {
    const std::string text = element.Current()->GetAttribute("Language");
    if (text.empty()) return false;
    const THdlLanguage language = GetHdlLanguageFromString(text.c_str());
    // Settings of other languages are read to get past them.
    if (!IsStoredLanguage(language))
        return TProjectSimLanguageConfig().ReadFromFile(element, projectFile);
    auto& settings = Languages[language];
    if (!settings) settings = std::make_unique<TProjectSimLanguageConfig>();
    if (!settings->ReadFromFile(element, projectFile)) return false;
    settings->SetTool(TSimTypeLanguageMap::instance()->GetDefaultOrSupportedSimulator(
        language, settings->GetTool()));
    settings->InitializeDefaultIncludeDirectory(false);
    return true;
}

void TProjectSimConfig::WriteToProjectFile(TXMLList* document) {
    if (!document) return;
    PushStart(document, "ProjectSettingsConfiguration", {{"ConfigurationName", Name}});
    General.WriteToProjectFile(document);
    for (const THdlLanguage language : GetStoredLanguages()) {
        TProjectSimLanguageConfig* settings = GetProjectLanguageConfig(language);
        if (!settings) continue;
        PushStart(document, "LanguageSettings", {{"Language", GetStringFromHdlLanguage(language)}});
        settings->WriteToProjectFile(document, language, false, false, false);
        PushEnd(document, "LanguageSettings");
    }
    PushEnd(document, "ProjectSettingsConfiguration");
}

void TProjectSimConfig::ReadFromINI() {
    General.ReadFromINI(GeneralSection(Name).c_str(), false);
    for (const THdlLanguage language : GetStoredLanguages())
        if (TProjectSimLanguageConfig* settings = GetProjectLanguageConfig(language))
            settings->ReadFromINI(LanguageSection(Name, language).c_str(), language, false);
}

void TProjectSimConfig::WriteToINI() const {
    General.WriteToINI(GeneralSection(Name).c_str(), false);
    for (const THdlLanguage language : GetStoredLanguages())
        if (const TProjectSimLanguageConfig* settings = GetProjectLanguageConfig(language))
            settings->WriteToINI(LanguageSection(Name, language).c_str(), language, false);
}
