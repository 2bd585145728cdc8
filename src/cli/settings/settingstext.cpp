#include "cli/settings/settingstext.h"
#include "cli/frame/texts.h"
#include "services/names/environment.h"
#include "services/names/ifilename.h"
#include "settings/storedlanguages.h"

namespace {

// The form in which a project file holds a directory.
std::string WrittenDirectory(const std::string& directory, const std::string& baseDirectory) {
    if (baseDirectory.empty() || HasOrvaneEnvVariable(directory.c_str())) return directory;
    std::string relative;
    IFileName::CreateRelativeFileName(baseDirectory.c_str(), directory.c_str(), &relative, false,
                                      false);
    return relative;
}

TJson ValueOf(const TLanguageKey& key, const TProjectSimLanguageConfig& settings,
              const std::string& baseDirectory) {
    const TListKey* list = FindListKey(key.Name);
    return list ? TJson(ListEntries(*list, settings, baseDirectory)) : key.Get(settings);
}

}  // namespace

std::vector<TSettingValue> ListSettings(const TProjectSimConfig& configuration,
                                        const std::string& baseDirectory) {
    std::vector<TSettingValue> values;
    for (const TGeneralKey& key : GeneralKeys())
        values.push_back({"", key.Name, key.Get(*configuration.GetGeneralConfiguration())});
    for (const THdlLanguage language : LanguagesOf(configuration))
        for (const TLanguageKey& key : LanguageKeys())
            values.push_back(
                {GetStringFromHdlLanguage(language), key.Name,
                 ValueOf(key, *configuration.GetProjectLanguageConfig(language), baseDirectory)});
    return values;
}

std::vector<std::string> ListEntries(const TListKey& list,
                                     const TProjectSimLanguageConfig& settings,
                                     const std::string& baseDirectory) {
    std::vector<std::string> entries = (settings.*list.Get)();
    if (list.HoldsDirectories)
        for (std::string& entry : entries) entry = WrittenDirectory(entry, baseDirectory);
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
        std::string line = "  " + std::string(setting.Key);
        if (!value.empty()) line.append(kWidth + 2 - line.size(), ' ').append(value);
        PrintLine(out, line);
    }
}
