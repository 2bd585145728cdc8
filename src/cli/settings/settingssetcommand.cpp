#include "cli/frame/knownnames.h"
#include "cli/frame/settingkeys.h"
#include "cli/frame/texts.h"
#include "cli/settings/commands.h"
#include "cli/settings/projectaccess.h"
#include "cli/frame/settingstext.h"
#include "services/names/environment.h"
#include "services/names/utilfilename.h"
#include <algorithm>

namespace {

/// Changes one setting of a configuration as the arguments say. Every step returns why it cannot be
/// done; "" when it is done.
class TSettingChange {
public:
    /// Directories are relative to `directory`.
    TSettingChange(TProjectSimConfig& configuration, const TSettingsArguments& arguments,
                   std::string directory)
        : Configuration(configuration), Arguments(arguments), Directory(std::move(directory)) {}

    std::string Make() {
        if (const TGeneralSetting* key = FindGeneralSetting(Arguments.Key)) {
            if (!Arguments.Language.empty())
                return Arguments.Key + " does not depend on a language";
            return SetValue(*key, *Configuration.GetGeneralConfiguration(), LANGUAGE_NONE);
        }
        const TLanguageSetting* key = FindLanguageSetting(Arguments.Key);
        if (!key) return UnknownName("setting", Arguments.Key, KnownKeys());
        const THdlLanguage language = GetHdlLanguageFromString(Arguments.Language.c_str());
        TProjectSimLanguageConfig* settings = Configuration.GetProjectLanguageConfig(language);
        if (!settings) return LanguageComplaint();
        return IsListKind(key->Kind) ? ChangeList(*key, *settings)
                                     : SetValue(*key, *settings, language);
    }

private:
    std::string LanguageComplaint() const {
        std::vector<std::string> known;
        for (const THdlLanguage language : LanguagesOf(Configuration))
            known.emplace_back(GetStringFromHdlLanguage(language));
        const std::string& language = Arguments.Language;
        if (!language.empty()) return UnknownName("language", language, known);
        return Arguments.Key +
               " depends on the language: give --language; known: " + JoinNames(known);
    }

    bool ChangesEntries() const {
        return Arguments.ClearEntries || !Arguments.AddedEntries.empty() ||
               !Arguments.RemovedEntries.empty();
    }

    template <class TSettings>
    std::string SetValue(const TSetting<TSettings>& key, TSettings& settings,
                         THdlLanguage language) const {
        if (ChangesEntries()) return Arguments.Key + " is no list: give one VALUE";
        if (Arguments.Words.size() != 1) return Arguments.Key + " takes one VALUE";
        const std::string& text = Arguments.Words.front();
        const std::string complaint = ValueComplaint(key.Kind, text, language);
        if (!complaint.empty()) return Arguments.Key + " '" + text + "': " + complaint;
        key.Set(settings, FileTextOf(key.Kind, text).c_str());
        return "";
    }

    std::string ChangeList(const TLanguageSetting& list,
                           TProjectSimLanguageConfig& settings) const {
        if (!ChangesEntries() || !Arguments.Words.empty())
            return Arguments.Key + " is a list: give --add, --remove or --clear";
        if (Arguments.ClearEntries) (settings.*list.Entries.Clear)();
        for (const std::string& entry : Arguments.RemovedEntries)
            if (!RemoveEntry(list, settings, entry))
                return "'" + entry + "' is not listed in " + Arguments.Key +
                       "; listed: " + JoinNames(ListEntries(list, settings, Directory));
        for (const std::string& entry : Arguments.AddedEntries) {
            if (entry.empty()) return "an entry of " + Arguments.Key + " is not empty";
            if (!IsListed(list, settings, entry)) list.Entries.Add(settings, entry.c_str(), true);
        }
        return "";
    }

    /// The same text for all ways to write an entry: directories are listed with and without
    /// final delimiter, and relative or absolute.
    std::string MeaningOf(const TLanguageSetting& list, const std::string& entry) const {
        if (list.Kind != SETTING_DIRECTORIES) return entry;
        std::string text = entry;
        if (!HasOrvaneEnvVariable(entry.c_str())) {
            TUtilFileName path(Directory.c_str());
            path.PushDirectory(entry.c_str());
            text = path.Canonical();
        }
        while (!text.empty() && (text.back() == '/' || text.back() == '\\')) text.pop_back();
        return text;
    }

    bool IsListed(const TLanguageSetting& list, const TProjectSimLanguageConfig& settings,
                  const std::string& entry) const {
        const std::vector<std::string>& entries = (settings.*list.Entries.Get)();
        return std::any_of(entries.begin(), entries.end(), [&](const std::string& listed) {
            return MeaningOf(list, listed) == MeaningOf(list, entry);
        });
    }

    bool RemoveEntry(const TLanguageSetting& list, TProjectSimLanguageConfig& settings,
                     const std::string& entry) const {
        if (!IsListed(list, settings, entry)) return false;
        const std::vector<std::string> entries = (settings.*list.Entries.Get)();
        (settings.*list.Entries.Clear)();
        for (const std::string& kept : entries)
            if (MeaningOf(list, kept) != MeaningOf(list, entry))
                list.Entries.Add(settings, kept.c_str(), false);
        return true;
    }

    TProjectSimConfig& Configuration;
    const TSettingsArguments& Arguments;
    std::string Directory;
};

}  // namespace

int RunSettingsSet(const TSettingsArguments& arguments, const TToolStreams& streams) {
    TProjectAccess project(arguments, streams);
    if (const int status = project.ReadToChange(); status != kExitDone) return status;
    TProjectSimConfig* configuration = project.FindConfiguration();
    if (!configuration) return kExitUsage;
    const std::string complaint =
        TSettingChange(*configuration, arguments, project.GetDirectory()).Make();
    if (complaint.empty()) return project.Save("set");
    ReportError(streams, complaint);
    return kExitUsage;
}
