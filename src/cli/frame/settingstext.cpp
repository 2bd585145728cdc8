#include "cli/frame/settingstext.h"
#include "cli/frame/texts.h"
#include "settings/storedlanguages.h"

std::vector<TSettingValue> ListSettings(const TProjectSimConfig& configuration,
                                        const std::string& baseDirectory) {
    std::vector<TSettingValue> values;
    AddGeneralSettings(*configuration.GetGeneralConfiguration(), &values);
    for (const THdlLanguage language : LanguagesOf(configuration))
        AddLanguageSettings(language, *configuration.GetProjectLanguageConfig(language),
                            baseDirectory, &values);
    return values;
}

void AddGeneralSettings(const TProjectSimGeneralConfig& settings,
                        std::vector<TSettingValue>* values) {
    for (const TGeneralSetting& setting : GetGeneralSettings())
        values->push_back({"", setting.Name, ValueOf(setting.Kind, setting.Get(settings))});
}

void AddLanguageSettings(THdlLanguage language, const TProjectSimLanguageConfig& settings,
                         const std::string& baseDirectory, std::vector<TSettingValue>* values) {
    for (const TLanguageSetting& setting : GetLanguageSettings())
        values->push_back({GetStringFromHdlLanguage(language), setting.Name,
                           ValueOf(setting, settings, baseDirectory)});
}

TJson ValueOf(const TLanguageSetting& setting, const TProjectSimLanguageConfig& settings,
              const std::string& baseDirectory) {
    return IsListKind(setting.Kind) ? TJson(ListEntries(setting, settings, baseDirectory))
                                    : ValueOf(setting.Kind, setting.Get(settings));
}

std::vector<std::string> ListEntries(const TLanguageSetting& list,
                                     const TProjectSimLanguageConfig& settings,
                                     const std::string& baseDirectory) {
    std::vector<std::string> entries = (settings.*list.Entries.Get)();
    if (list.Kind == SETTING_DIRECTORIES)
        for (std::string& entry : entries)
            entry = TProjectSimLanguageConfig::GetWrittenDirectory(entry, baseDirectory);
    return entries;
}

std::vector<THdlLanguage> LanguagesOf(const TProjectSimConfig& configuration) {
    std::vector<THdlLanguage> languages;
    for (const THdlLanguage language : GetStoredLanguages())
        if (configuration.GetProjectLanguageConfig(language)) languages.push_back(language);
    return languages;
}

void AddSettings(TJson& result, const std::vector<TSettingValue>& settings) {
    result["general"] = TJson::Object();
    result["languages"] = TJson::Object();
    for (const TSettingValue& setting : settings) {
        TJson& group =
            setting.Language.empty() ? result["general"] : result["languages"][setting.Language];
        group[setting.Key] = setting.Value;
    }
}

void PrintSettings(const std::vector<TSettingValue>& settings, std::ostream& out) {
    constexpr std::size_t kWidth = 34;
    std::string language;
    for (const TSettingValue& setting : settings) {
        if (setting.Language != language) PrintLine(out, language = setting.Language);
        const std::string value = setting.Value.Text();
        std::string line = "  " + setting.Key;
        if (!value.empty()) line.append(kWidth + 2 - line.size(), ' ').append(value);
        PrintLine(out, line);
    }
}
