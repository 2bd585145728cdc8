#include "cli/settingstext.h"
#include "services/names/environment.h"
#include "services/names/ifilename.h"
#include "settings/storedlanguages.h"

namespace {

// As a project file has it.
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

std::string Text(const TJson& value) {
    if (value.is_string()) return value.get<std::string>();
    if (!value.is_array()) return value.dump();
    return JoinNames(value.get<std::vector<std::string>>());
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
    result["general"] = TJson::object();
    result["languages"] = TJson::object();
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
        if (setting.Language != language) out << (language = setting.Language) << "\n";
        const std::string value = Text(setting.Value);
        out << "  " << setting.Key;
        if (!value.empty())
            out << std::string(kWidth - std::string_view(setting.Key).size(), ' ') << value;
        out << "\n";
    }
}

void PrintNames(const std::vector<std::string>& names, const std::string& current,
                std::ostream& out) {
    for (const std::string& name : names) out << (name == current ? "* " : "  ") << name << "\n";
}

std::string JoinNames(const std::vector<std::string>& names) {
    std::string joined;
    for (const std::string& name : names) joined += (joined.empty() ? "" : ", ") + name;
    return joined;
}
