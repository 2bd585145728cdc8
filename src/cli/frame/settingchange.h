#pragma once
#include "cli/frame/command.h"
#include "settings/settingtable.h"
#include <string>
#include <vector>

/// What a user wants of one setting.
struct TSettingRequest {
    std::string Key;
    std::string Language;
    std::vector<std::string> Words;  ///< VALUE
    std::vector<std::string> AddedEntries;
    std::vector<std::string> RemovedEntries;
    bool ClearEntries = false;

    bool ChangesEntries() const {
        return ClearEntries || !AddedEntries.empty() || !RemovedEntries.empty();
    }
};

/// The arguments that set all of it but Words, which VALUE is. `key` describes KEY.
std::vector<TArgument> SettingArguments(TSettingRequest& request, const char* key);
/// The help of an option that takes a language that has settings.
std::string SettingLanguageHelp();
inline constexpr const char* kSettingFooter =
    "VALUE may begin with '-'; write --add=ENTRY for an entry that does. A list is emptied\n"
    "first, then entries are removed, then added. Directories are relative to the folder of the\n"
    "file. What follows '--' is no option, whatever it looks like.";

/// Why `request` does not set `key`, or a list of that name, to one VALUE; "" when it does.
std::string ValueComplaint(const TSettingRequest& request);
/// Why a key that does not depend on a language cannot be asked for; "" when it can.
std::string GeneralComplaint(const TSettingRequest& request);
/// Why none of `known` is meant; "" when `language` is one of them.
std::string LanguageComplaint(const TSettingRequest& request, THdlLanguage language,
                              const std::vector<THdlLanguage>& known);

/// Change a setting; return why that cannot be done, "" when it is done.
std::string ChangeSetting(const TSettingRequest& request, const TGeneralSetting& key,
                          TProjectSimGeneralConfig* settings);
/// Directories are relative to `directory`.
std::string ChangeSetting(const TSettingRequest& request, const TLanguageSetting& key,
                          THdlLanguage language, const std::string& directory,
                          TProjectSimLanguageConfig* settings);
