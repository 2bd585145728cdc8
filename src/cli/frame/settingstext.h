#pragma once
#include "cli/frame/settingkeys.h"
#include "flows/trees/json.h"
#include "settings/projectsimconfig.h"
#include <string>
#include <vector>

/// One setting of a configuration or a build.
struct TSettingValue {
    std::string Language;  ///< "" for a general setting
    std::string Key;
    TJson Value;
};

/// Every setting, in the order of project files. Directories are relative to `baseDirectory`, or
/// as the settings hold them when it is empty.
std::vector<TSettingValue> ListSettings(const TProjectSimConfig& configuration,
                                        const std::string& baseDirectory);

/// Adds those that do not depend on a language, and those of one language.
void AddGeneralSettings(const TProjectSimGeneralConfig& settings,
                        std::vector<TSettingValue>* values);
void AddLanguageSettings(THdlLanguage language, const TProjectSimLanguageConfig& settings,
                         const std::string& baseDirectory, std::vector<TSettingValue>* values);

/// The value of one setting of a language.
TJson ValueOf(const TLanguageSetting& setting, const TProjectSimLanguageConfig& settings,
              const std::string& baseDirectory);

/// The entries of a list, directories in the same form as in ListSettings.
std::vector<std::string> ListEntries(const TLanguageSetting& list,
                                     const TProjectSimLanguageConfig& settings,
                                     const std::string& baseDirectory);

/// The languages that the configuration has settings for.
std::vector<THdlLanguage> LanguagesOf(const TProjectSimConfig& configuration);

/// Adds "general" and "languages" with every setting to `result`.
void AddSettings(TJson& result, const std::vector<TSettingValue>& settings);
/// Prints the settings, one a line, below a line for each language.
void PrintSettings(const std::vector<TSettingValue>& settings, std::ostream& out);
