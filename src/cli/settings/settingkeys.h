#pragma once
#include "cli/frame/json.h"
#include "settings/projectsimgeneralconfig.h"
#include "settings/projectsimlanguageconfig.h"
#include <string>
#include <vector>

/// What texts a setting takes.
enum TSettingKind {
    SETTING_TEXT,
    SETTING_NAME,  ///< a text that is not empty
    SETTING_BOOL,
    SETTING_NUMBER,
    SETTING_DELAY,
    SETTING_SIMULATOR,
    SETTING_LIST  ///< entries, which are added and removed one by one
};

/// One setting under the name that files give it.
template <class TSettings>
struct TSettingKey {
    const char* Name;
    TSettingKind Kind;
    TJson (*Get)(const TSettings& settings);
    /// Null for a list. The text is one that the kind takes.
    void (*Set)(TSettings& settings, const char* text) = nullptr;
};

/// The entries of a list of `TProjectSimLanguageConfig`.
struct TListKey {
    const char* Name;
    bool HoldsDirectories;
    const std::vector<std::string>& (TProjectSimLanguageConfig::*Get)() const;
    /// A relative directory is taken against the project file. False when it is listed already.
    bool (*Add)(TProjectSimLanguageConfig& settings, const char* entry);
    void (TProjectSimLanguageConfig::*Clear)();
    /// Adds the entry without resolving it.
    bool (*Restore)(TProjectSimLanguageConfig& settings, const char* entry);
};

using TGeneralKey = TSettingKey<TProjectSimGeneralConfig>;
using TLanguageKey = TSettingKey<TProjectSimLanguageConfig>;

/// All settings, in the order of project files.
const std::vector<TGeneralKey>& GeneralKeys();
const std::vector<TLanguageKey>& LanguageKeys();

/// Null for an unknown name. The older names of the build options are known.
const TGeneralKey* FindGeneralKey(const std::string& name);
const TLanguageKey* FindLanguageKey(const std::string& name);
/// Null for a setting that is no list.
const TListKey* FindListKey(const std::string& name);

/// The names of all settings, separated by commas.
std::string KnownKeys();

/// Why a setting of `kind` does not take `text`; "" when it does. `language` is that of the
/// setting, LANGUAGE_NONE for a general one.
std::string ValueComplaint(TSettingKind kind, const std::string& text, THdlLanguage language);
