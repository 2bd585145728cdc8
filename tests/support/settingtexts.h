#pragma once
#include <map>
#include <string>
#include <vector>

// The settings as tests expect them in every format, written by hand and independent of the tables
// that the library walks. A new setting is one row in settingtexts.cpp.

/// How JSON and XML put down a value.
enum TSettingForm : int {
    FORM_TEXT,
    FORM_BARE,   ///< a boolean or a number: without quotes in JSON
    FORM_DELAY,  ///< "min", "typical" or "max"; XML has its number
    FORM_LIST,   ///< entries with ", " between them; XML and JSON have each on its own
};

/// A setting that does not depend on the language.
struct TGeneralSettingText {
    const char* Name;
    TSettingForm Form;
    const char* Default;
    const char* Changed;                    ///< a value that differs from the default
    const char* MissingInElement;           ///< what a missing attribute sets; null: nothing
    const char* MissingInIni;               ///< what a missing key sets; null: nothing
    int IniPlace;                           ///< keys are written in ascending order
    const char* FixedInDiagrams = nullptr;  ///< the value, which has no key; null: is stored
};

/// A setting of one language.
struct TLanguageSettingText {
    const char* Name;
    TSettingForm Form = FORM_TEXT;
    const char* Default = "";
    const char* IniKey = nullptr;       ///< null: not in INI files
    const char* IniLanguage = nullptr;  ///< that alone has the key; null: all. TestBuilder writes
                                        ///< directories too, which are not here
    int IniPlace = 0;                   ///< keys are written in ascending order
    const char* Entry = nullptr;        ///< the element of a list's entry
    bool IsWrittenEmpty = true;         ///< false: an empty text has no element
};

/// All settings in the order of project files.
const std::vector<TGeneralSettingText>& GeneralSettingTexts();
const std::vector<TLanguageSettingText>& LanguageSettingTexts();

/// Values by the names of their settings. Renderers take the defaults for all others, and add a
/// failure for a name that is no setting. No format's special characters are escaped.
using TSettingValues = std::map<std::string, std::string>;

/// A column of the general settings, without its nulls.
TSettingValues GeneralValues(const char* TGeneralSettingText::*column);

/// `text`, in any format but JSON, without the library's settings that the tables lack: a new
/// setting fails only the tests that show all settings of a format.
std::string WithoutUnknown(std::string text);

/// The names of all settings, general ones first, with ", " between them.
std::string SettingNames();

/// The start element, as in ElementsOf, and the whole element.
std::string GeneralStart(const TSettingValues& values = {});
std::string GeneralElements(const TSettingValues& values = {});

/// The elements within a language's element, as in ElementsOf, and the whole element.
std::string LanguageContent(const TSettingValues& values);
std::string LanguageElements(const std::string& language, const TSettingValues& values);

/// The element as files hold it, the first without indentation and line end.
std::string GeneralXml(const TSettingValues& values = {});
std::string LanguageXml(const std::string& language, const TSettingValues& values);

/// The lines of an INI section under its head. `prefix` precedes all keys but the simulator's.
std::string GeneralIni(const TSettingValues& values = {});
std::string GeneralIniOfDiagrams(const TSettingValues& values = {});
std::string LanguageIni(const std::string& language, const std::string& prefix,
                        const TSettingValues& values);

/// What "settings show" prints; a language's part begins with its name.
std::string ShownLine(const std::string& name, const std::string& value);
std::string ShownGeneral(const TSettingValues& values = {});
std::string ShownLanguage(const std::string& language, const TSettingValues& values);

/// The members of the object that "settings show --json" prints, without a comma or line end.
std::string GeneralJson(const TSettingValues& values = {});
std::string LanguageJson(const std::string& language, const TSettingValues& values);
