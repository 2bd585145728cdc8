#include "cli/settings/settingsloss.h"
#include "cli/settings/settingkeys.h"
#include "services/base/mystring.h"
#include "settings/storedlanguages.h"
#include <algorithm>
#include <charconv>
#include <set>
#include <vector>

namespace {

bool IsNumber(const std::string& text) {
    int number = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end;
}

// Files may hold the words for true and false in any case.
bool IsBool(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return ValueComplaint(SETTING_BOOL, text, LANGUAGE_NONE).empty();
}

/// Whether a reader takes `text` as it is, not as some default. An empty one sets nothing.
bool IsKept(TSettingKind kind, const std::string& text, THdlLanguage language) {
    TMyString trimmed = text;
    trimmed.Trim(1, 0);
    const std::string word = trimmed.Str();
    if (word.empty()) return true;
    switch (kind) {
        case SETTING_BOOL:
            return IsBool(word);
        case SETTING_NUMBER:
        case SETTING_DELAY:
            return IsNumber(word);
        case SETTING_SIMULATOR:
            return ValueComplaint(SETTING_SIMULATOR, word, language).empty();
        case SETTING_NAME:
        case SETTING_TEXT:
        case SETTING_LIST:
        case SETTING_DIRECTORIES:
            return true;
    }
    return true;
}

/// Walks the element as its reader does. Every step leaves its own element behind and returns
/// whether all of it would be kept; the first thing that would not is in Loss then.
class TSettingsWalk {
public:
    explicit TSettingsWalk(DListIterator<TElement*> section) : Element(section) {}

    std::string Find() {
        if (Element.NotAtTail() && HasOnly({"CurrentConfiguration"}, "ProjectSettings"))
            WalkChildren("ProjectSettings", [this] {
                return Is("ProjectSettingsConfiguration") ? WalkConfiguration()
                                                          : LoseElement("ProjectSettings");
            });
        return Loss;
    }

private:
    bool Lose(const std::string& what) {
        Loss = what;
        return false;
    }
    bool LoseElement(const std::string& place) {
        return Lose("the unknown element " + Element.Current()->Name.Str() + " in " + place);
    }
    bool LoseAttribute(const std::string& name, const std::string& place) {
        return Lose("the unknown attribute " + name + " of " + place);
    }
    bool LoseValue(const std::string& name, const std::string& value, const std::string& place) {
        return Lose(name + " '" + value + "' " + place);
    }

    bool Is(const char* name) const { return Element.Current()->Name == name; }
    bool IsText() const { return Element.Current()->ElemType == TElement::TEXT; }
    bool IsEnd() const {
        return !Element.NotAtTail() || Element.Current()->ElemType == TElement::END;
    }

    bool HasOnly(const std::vector<std::string>& names, const std::string& place) {
        for (const auto& attribute : Element.Current()->GetAttributes())
            if (std::find(names.begin(), names.end(), attribute.first) == names.end())
                return LoseAttribute(attribute.first, place);
        return true;
    }

    template <class WalkChild>
    bool WalkChildren(const std::string& place, WalkChild walkChild) {
        for (++Element; !IsEnd();) {
            if (IsText()) return Lose("a text in " + place);
            if (!walkChild()) return false;
        }
        ++Element;
        return true;
    }

    bool WalkConfiguration() {
        const std::string name = Element.Current()->GetAttribute("ConfigurationName");
        if (!HasOnly({"ConfigurationName"}, name)) return false;
        std::set<std::string> met;
        return WalkChildren(name, [&] {
            if (Is("LanguageSettings")) return WalkLanguage(name, &met);
            if (!Is("GeneralConfiguration")) return LoseElement(name);
            if (!met.insert("GeneralConfiguration").second)
                return Lose("GeneralConfiguration more than once in " + name);
            return WalkGeneral(name);
        });
    }

    bool WalkGeneral(const std::string& configuration) {
        const std::string place = "GeneralConfiguration in " + configuration;
        for (const auto& [name, value] : Element.Current()->GetAttributes()) {
            const TGeneralSetting* key = FindGeneralSetting(name);
            if (!key) return LoseAttribute(name, place);
            if (!IsKept(key->Kind, value, LANGUAGE_NONE))
                return LoseValue(name, value, "in " + configuration);
        }
        return WalkChildren(place, [&] { return LoseElement(place); });
    }

    bool WalkLanguage(const std::string& configuration, std::set<std::string>* met) {
        const std::string text = Element.Current()->GetAttribute("Language");
        const THdlLanguage language = GetHdlLanguageFromString(text.c_str());
        if (!IsStoredLanguage(language))
            return Lose("the language '" + text + "' in " + configuration);
        const std::string name = GetStringFromHdlLanguage(language);
        if (!met->insert(name).second) return Lose(name + " more than once in " + configuration);
        Language = language;
        Place = name + " in " + configuration;
        std::set<std::string> settings;
        return HasOnly({"Language"}, Place) &&
               WalkChildren(Place, [&] { return WalkSetting(&settings); });
    }

    bool WalkSetting(std::set<std::string>* met) {
        const std::string element = Element.Current()->Name.Str();
        const TLanguageSetting* key = FindLanguageSetting(element);
        if (!key) return LoseElement(Place);
        if (!HasOnly({}, element + " of " + Place)) return false;
        // An element without a text sets nothing.
        DListIterator<TElement*> content = Element;
        ++content;
        const bool isSet = content.NotAtTail() && content.Current()->ElemType != TElement::END;
        if (isSet && !met->insert(key->Name).second)
            return Lose(std::string(key->Name) + " of " + Place + " more than once");
        return IsListKind(key->Kind) ? WalkList(*key) : WalkValue(*key, element);
    }

    bool WalkValue(const TLanguageSetting& key, const std::string& element) {
        ++Element;
        if (IsText()) {
            const std::string text = Element.Current()->Text.Str();
            if (!IsKept(key.Kind, text, Language)) return LoseValue(element, text, "of " + Place);
            ++Element;
        }
        if (!IsEnd()) return LoseElement(element + " of " + Place);
        ++Element;
        return true;
    }

    bool WalkList(const TLanguageSetting& key) {
        const std::string place = std::string(key.Name) + " of " + Place;
        return WalkChildren(place, [&] {
            const std::string entry = Element.Current()->Name.Str();
            if (!HasOnly({}, entry + " of " + place)) return false;
            ++Element;
            if (IsText()) ++Element;
            if (!IsEnd()) return LoseElement(entry + " of " + place);
            ++Element;
            return true;
        });
    }

    DListIterator<TElement*> Element;
    THdlLanguage Language = LANGUAGE_NONE;
    std::string Place;  // the language and the configuration
    std::string Loss;
};

}  // namespace

std::string FindSettingsLoss(DListIterator<TElement*> section) {
    return TSettingsWalk(section).Find();
}
