#include "cli/frame/settingkeys.h"
#include "flows/knownnames.h"
#include "flows/simulatornames.h"
#include <algorithm>
#include <array>
#include <charconv>

namespace {

int NumberOf(const std::string& text) {
    int number = -1;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end ? number : -1;
}

}  // namespace

TJson ValueOf(TSettingKind kind, const std::string& text) {
    if (kind == SETTING_BOOL) return TJson(text == "true");
    if (kind == SETTING_NUMBER) return TJson(NumberOf(text));
    if (kind == SETTING_DELAY)
        return TJson(GetDelayTypeFromEnum(static_cast<TSimProjectDelayType>(NumberOf(text))));
    return TJson(text);
}

// Files hold the number of a delay type, commands take the word too.
std::string FileTextOf(TSettingKind kind, const std::string& text) {
    constexpr std::array kDelayTypes = {"min", "typical", "max"};
    const auto word = std::find(kDelayTypes.begin(), kDelayTypes.end(), text);
    return kind == SETTING_DELAY && word != kDelayTypes.end()
               ? std::to_string(word - kDelayTypes.begin())
               : text;
}

std::vector<std::string> KnownKeys() {
    std::vector<std::string> names;
    for (const TGeneralSetting& setting : GetGeneralSettings()) names.emplace_back(setting.Name);
    for (const TLanguageSetting& setting : GetLanguageSettings()) names.emplace_back(setting.Name);
    return names;
}

std::string ValueComplaint(TSettingKind kind, const std::string& text, THdlLanguage language) {
    const auto isOneOf = [&text](std::initializer_list<const char*> words) {
        return std::find(words.begin(), words.end(), text) != words.end();
    };
    switch (kind) {
        case SETTING_NAME:
            return text.empty() ? "a text that is not empty is wanted" : "";
        case SETTING_BOOL:
            if (isOneOf({"true", "yes", "on", "1", "false", "no", "off", "0"})) return "";
            return "true or false is wanted";
        case SETTING_NUMBER:
            return NumberOf(text) >= 0 ? "" : "a number from 0 on is wanted";
        case SETTING_DELAY:
            if (isOneOf({"min", "typical", "max", "0", "1", "2"})) return "";
            return "min, typical or max is wanted";
        case SETTING_SIMULATOR: {
            const auto& languages =
                GetSimulatorTable()[static_cast<std::size_t>(FindSimulator(text))].Languages;
            if (std::find(languages.begin(), languages.end(), language) != languages.end())
                return "";
            return WithKnownNames("no simulator of this language", text, KnownSimulators(language));
        }
        case SETTING_TEXT:
        case SETTING_LIST:
        case SETTING_DIRECTORIES:
            return "";
    }
    return "";
}
