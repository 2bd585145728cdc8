#pragma once
#include "settings/projectsimgeneralconfig.h"
#include "settings/projectsimlanguageconfig.h"
#include <string>
#include <vector>

/// What texts a setting takes.
enum TSettingKind : int {
    SETTING_TEXT,
    SETTING_NAME,  ///< a text that is not empty
    SETTING_BOOL,
    SETTING_NUMBER,
    SETTING_DELAY,      ///< in project files the number of a TSimProjectDelayType, in INI files its
                        ///< text
    SETTING_SIMULATOR,  ///< a simulator's name; readers of project files take its number too
    SETTING_LIST,       ///< entries, which are added and removed one by one
    SETTING_DIRECTORIES  ///< a list of directories
};
/// Whether a setting of this kind has entries instead of a text.
inline bool IsListKind(TSettingKind kind) {
    return kind == SETTING_LIST || kind == SETTING_DIRECTORIES;
}

/// One setting: what every format and every command has to know of it.
template <class TSettings>
struct TSetting {
    const char* Name;  ///< of its element or attribute, and in commands
    TSettingKind Kind;
    /// The text as project files hold it, and its inverse, which takes any text. Null for a list.
    std::string (*Get)(const TSettings& settings) = nullptr;
    void (*Set)(TSettings& settings, const char* text) = nullptr;
};

/// A setting that does not depend on the language. Its INI key is its name.
struct TGeneralSetting : TSetting<TProjectSimGeneralConfig> {
    const char* MissingInElement;  ///< what a missing or empty attribute sets; null: nothing
    const char* MissingInIni;      ///< what a missing key sets; null: nothing
    int IniPlace;                  ///< keys are read and written in ascending order
    /// What diagrams fix it to, instead of storing it; null: they store it.
    const char* FixedInDiagrams = nullptr;
};

/// Where the settings of a language have a key. Keys are read and written in ascending order.
struct TIniPlace {
    int Place;
    THdlLanguage Language = LANGUAGE_NONE;  ///< which has the key; LANGUAGE_NONE: every one
    bool IsRead = true;                     ///< false: written in the place of being read
};

/// The entries of a list.
struct TSettingEntries {
    const char* Element;  ///< of an entry
    const std::vector<std::string>& (TProjectSimLanguageConfig::*Get)() const;
    /// False when an equal entry is listed. `resolve` makes a directory absolute.
    bool (*Add)(TProjectSimLanguageConfig& settings, const char* entry, bool resolve);
    void (TProjectSimLanguageConfig::*Clear)();
};

/// A setting of one language.
struct TLanguageSetting : TSetting<TProjectSimLanguageConfig> {
    /// Null: INI files do not hold it. That of the simulator precedes all others.
    const char* IniKey = nullptr;
    std::vector<TIniPlace> IniPlaces{};
    const char* MissingInIni = nullptr;     ///< what a missing key sets; null: nothing
    std::vector<const char*> OlderNames{};  ///< elements of older files
    bool IsWrittenEmpty = true;             ///< false: an empty text has no element
    TSettingEntries Entries{};              ///< of a list
};

/// All settings in the order of project files, whose formats walk these tables. Static.
HDLBUILDFILE_API const std::vector<TGeneralSetting>& GetGeneralSettings();
HDLBUILDFILE_API const std::vector<TLanguageSetting>& GetLanguageSettings();

/// Null for an unknown name. Older names of a language's setting are known.
HDLBUILDFILE_API const TGeneralSetting* FindGeneralSetting(const std::string& name);
HDLBUILDFILE_API const TLanguageSetting* FindLanguageSetting(const std::string& name);
