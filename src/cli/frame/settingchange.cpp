#include "cli/frame/settingchange.h"
#include "cli/frame/settingkeys.h"
#include "cli/frame/settingstext.h"
#include "cli/frame/texts.h"
#include "flows/knownnames.h"
#include "services/hdl/hdllanguagetable.h"
#include "services/names/environment.h"
#include "services/names/utilfilename.h"
#include <algorithm>

namespace {

std::vector<std::string> NamesOf(const std::vector<THdlLanguage>& languages) {
    std::vector<std::string> names;
    names.reserve(languages.size());
    for (const THdlLanguage language : languages)
        names.emplace_back(GetStringFromHdlLanguage(language));
    return names;
}

template <class TSettings>
std::string SetValue(const TSettingRequest& request, const TSetting<TSettings>& key,
                     THdlLanguage language, TSettings* settings) {
    std::string complaint = ValueComplaint(request);
    if (!complaint.empty()) return complaint;
    const std::string& text = request.Words.front();
    complaint = ValueComplaint(key.Kind, text, language);
    if (!complaint.empty()) return request.Key + " '" + text + "': " + complaint;
    key.Set(*settings, FileTextOf(key.Kind, text).c_str());
    return "";
}

/// A list that is changed.
class TListChange {
public:
    TListChange(const TSettingRequest& request, const TLanguageSetting& list,
                const std::string& directory, TProjectSimLanguageConfig* settings)
        : Request(request), List(list), Directory(directory), Settings(*settings) {}

    std::string Make() {
        if (!Request.ChangesEntries() || !Request.Words.empty())
            return Request.Key + " is a list: give --add, --remove or --clear";
        if (Request.ClearEntries) (Settings.*List.Entries.Clear)();
        for (const std::string& entry : Request.RemovedEntries)
            if (!Remove(entry))
                return "'" + entry + "' is not listed in " + Request.Key +
                       "; listed: " + JoinNames(ListEntries(List, Settings, Directory));
        for (const std::string& entry : Request.AddedEntries) {
            if (entry.empty()) return "an entry of " + Request.Key + " is not empty";
            if (!IsListed(entry)) List.Entries.Add(Settings, entry.c_str(), true);
        }
        return "";
    }

private:
    /// The same text for all ways to write an entry: directories are listed with and without
    /// final delimiter, and relative or absolute.
    std::string MeaningOf(const std::string& entry) const {
        if (List.Kind != SETTING_DIRECTORIES) return entry;
        std::string text = entry;
        if (!HasOrvaneEnvVariable(entry.c_str())) {
            TUtilFileName path(Directory.c_str());
            path.PushDirectory(entry.c_str());
            text = path.Canonical();
        }
        while (!text.empty() && (text.back() == '/' || text.back() == '\\')) text.pop_back();
        return text;
    }

    bool IsListed(const std::string& entry) const {
        const std::vector<std::string>& entries = (Settings.*List.Entries.Get)();
        return std::any_of(entries.begin(), entries.end(), [&](const std::string& listed) {
            return MeaningOf(listed) == MeaningOf(entry);
        });
    }

    bool Remove(const std::string& entry) {
        if (!IsListed(entry)) return false;
        const std::vector<std::string> entries = (Settings.*List.Entries.Get)();
        (Settings.*List.Entries.Clear)();
        for (const std::string& kept : entries)
            if (MeaningOf(kept) != MeaningOf(entry))
                List.Entries.Add(Settings, kept.c_str(), false);
        return true;
    }

    const TSettingRequest& Request;
    const TLanguageSetting& List;
    const std::string& Directory;
    TProjectSimLanguageConfig& Settings;
};

}  // namespace

std::vector<TArgument> SettingArguments(TSettingRequest& request, const char* key) {
    return {
        {"KEY", &request.Key, key, kRequired},
        {"--language", &request.Language, SettingLanguageHelp()},
        {"--add", &request.AddedEntries, "Add this entry to a list"},
        {"--remove", &request.RemovedEntries, "Remove this entry from a list"},
        {"--clear", &request.ClearEntries, "Empty a list"},
    };
}

std::string SettingLanguageHelp() {
    return JoinChoices(NamesOf(GetStoredLanguages()));
}

std::string ValueComplaint(const TSettingRequest& request) {
    if (request.ChangesEntries()) return request.Key + " is no list: give one VALUE";
    return request.Words.size() == 1 ? "" : request.Key + " takes one VALUE";
}

std::string GeneralComplaint(const TSettingRequest& request) {
    return request.Language.empty() ? "" : request.Key + " does not depend on a language";
}

std::string LanguageComplaint(const TSettingRequest& request, THdlLanguage language,
                              const std::vector<THdlLanguage>& known) {
    if (std::find(known.begin(), known.end(), language) != known.end()) return "";
    const std::vector<std::string> names = NamesOf(known);
    if (!request.Language.empty()) return UnknownName("language", request.Language, names);
    return request.Key + " depends on the language: give --language; known: " + JoinNames(names);
}

std::string ChangeSetting(const TSettingRequest& request, const TGeneralSetting& key,
                          TProjectSimGeneralConfig* settings) {
    const std::string complaint = GeneralComplaint(request);
    return complaint.empty() ? SetValue(request, key, LANGUAGE_NONE, settings) : complaint;
}

std::string ChangeSetting(const TSettingRequest& request, const TLanguageSetting& key,
                          THdlLanguage language, const std::string& directory,
                          TProjectSimLanguageConfig* settings) {
    return IsListKind(key.Kind) ? TListChange(request, key, directory, settings).Make()
                                : SetValue(request, key, language, settings);
}
