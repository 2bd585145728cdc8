// The INI form of TProjectSimLanguageConfig.
#include "services/base/fold.h"
#include "services/files/directories.h"
#include "services/files/pathtext.h"
#include "services/ini/inifilenames.h"
#include "services/logging/binarylog.h"
#include "services/names/environment.h"
#include "services/names/isfilename.h"
#include "settings/inikeys.h"
#include "settings/projectsettingsconfigurationsdata.h"
#include "settings/settingtable.h"
#include <algorithm>

namespace {

using namespace ProjectSettingsConfigurationsData;

TIniKeys KeysOf(const char* section, TSimulatorType tool, bool bareKeys) {
    return {section, bareKeys ? "" : std::string(GetSimulatorNameFromType(tool)) + "_"};
}

/// The settings in the user's own INI file name what is installed with the environment.
std::string WrittenBaseOf(const ISFileName* projectFile) {
    const bool isIniFile =
        EqualIgnoringCase(projectFile->Canonical(false), GetIniFile()->Canonical(false));
    return isIniFile ? GetOrvaneHomeDirectory() : projectFile->GetPathOnly();
}

/// Writes the directories in the form that dialogs show, relative to `projectFile`; unchanged
/// without one.
void WriteRelativePathToINI(const TIniKeys& keys, const char* key,
                            const std::vector<std::string>& directories,
                            const ISFileName* projectFile) {
    if (!projectFile || !*projectFile->Canonical(false))
        return keys.WriteStringsToINI(key, directories);
    const std::string base = WrittenBaseOf(projectFile);
    std::vector<std::string> nice;
    for (const std::string& directory : directories) {
        nice.push_back(directory);
        // A relative directory counts from the project, not from the working directory.
        if (!HasOrvaneEnvVariable(directory.c_str()) && !IsRelativePath(directory.c_str()))
            IFileName::CreateNiceFileNameForUI(base.c_str(), directory.c_str(), &nice.back());
    }
    keys.WriteStringsToINI(key, nice);
}

/// A setting with a key in the INI files, and what is known of the key.
struct TIniSetting {
    const TLanguageSetting* Setting;
    TIniPlace Place;
};

/// The settings of `language` that have a key, in the order of their keys.
std::vector<TIniSetting> IniSettingsOf(THdlLanguage language) {
    std::vector<TIniSetting> found;
    for (const TLanguageSetting& setting : GetLanguageSettings())
        for (const TIniPlace& place : setting.IniPlaces)
            if (place.Language == LANGUAGE_NONE || place.Language == language)
                found.push_back({&setting, place});
    std::sort(found.begin(), found.end(), [](const TIniSetting& a, const TIniSetting& b) {
        return a.Place.Place < b.Place.Place;
    });
    return found;
}

void ReadEntries(const TIniKeys& keys, const TLanguageSetting& setting,
                 TProjectSimLanguageConfig& settings, bool resolve) {
    const auto texts = keys.ReadStringsFromINI(setting.IniKey);
    if (!texts) return;
    (settings.*setting.Entries.Clear)();
    for (const std::string& text : *texts) setting.Entries.Add(settings, text.c_str(), resolve);
}

void ReadKey(const TIniKeys& keys, const TLanguageSetting& setting,
             TProjectSimLanguageConfig& settings) {
    std::string text;
    if (const auto found = keys.ReadText(setting.IniKey))
        text = *found;
    else if (setting.MissingInIni)
        text = setting.MissingInIni;
    else
        return;
    if (setting.Kind == SETTING_DELAY)
        text = std::to_string(ParseDelayType(std::string(TrimmedView(text)).c_str()));
    setting.Set(settings, text.c_str());
}

void WriteKey(const TIniKeys& keys, const TLanguageSetting& setting,
              const TProjectSimLanguageConfig& settings) {
    if (setting.Kind == SETTING_LIST)
        return keys.WriteStringsToINI(setting.IniKey, (settings.*setting.Entries.Get)());
    if (setting.Kind == SETTING_DIRECTORIES)
        return WriteRelativePathToINI(keys, setting.IniKey, (settings.*setting.Entries.Get)(),
                                      settings.GetProjectFileName());
    const std::string text = setting.Kind == SETTING_DELAY
                                 ? GetDelayTypeFromEnum(settings.GetDelayType())
                                 : setting.Get(settings);
    keys.WriteText(setting.IniKey, text.c_str());
}

}  // namespace

void TProjectSimLanguageConfig::ReadFromINI(const char* section, THdlLanguage language,
                                            bool bareKeys) {
    if (const auto tool = TIniKeys(section, "").ReadText("SimTool"))
        Tool = GetSimulatorTypeFromName(tool->c_str());
    const TIniKeys keys = KeysOf(section, Tool, bareKeys);
    for (const auto& [setting, place] : IniSettingsOf(language)) {
        if (!place.IsRead)
            WriteKey(keys, *setting, *this);
        else if (IsListKind(setting->Kind))
            ReadEntries(keys, *setting, *this, bareKeys && setting->Kind == SETTING_DIRECTORIES);
        else
            ReadKey(keys, *setting, *this);
    }
}

void TProjectSimLanguageConfig::WriteToINI(const char* section, THdlLanguage language,
                                           bool bareKeys) const {
    if (Tool == SIM_NONE) {
        static TCheckSite site("SimTool != SIM_NONE", kSource, kWriteIniWithoutSimulator);
        site.Report();
    }
    TIniKeys(section, "").WriteText("SimTool", GetSimulatorNameFromType(Tool));
    const TIniKeys keys = KeysOf(section, Tool, bareKeys);
    for (const auto& [setting, place] : IniSettingsOf(language)) WriteKey(keys, *setting, *this);
}
