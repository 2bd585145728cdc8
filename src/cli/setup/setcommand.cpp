#include "cli/frame/buildaccess.h"
#include "cli/frame/settingstext.h"
#include "cli/setup/buildkeys.h"
#include "cli/setup/commands.h"
#include "flows/knownnames.h"
#include "services/hdl/hdllanguagetable.h"
#include <algorithm>

namespace {

/// Changes a build by one request. Every step returns why it cannot be done; "" when it is done.
class TBuildChange {
public:
    TBuildChange(const TSettingRequest& request, TBuildAccess* access)
        : Request(request), Access(*access), Build(access->GetBuild()) {}

    std::string Make() {
        if (const TBuildAttribute* const key = FindBuildAttribute(Request.Key))
            return ChangeAttribute(*key);
        if (const auto name = VariableOf(Request.Key)) return ChangeVariable(*name);
        if (const TGeneralSetting* const key = FindGeneralSetting(Request.Key))
            return ChangeGeneral(*key);
        if (const TLanguageSetting* const key = FindLanguageSetting(Request.Key))
            return ChangeLanguage(*key);
        return UnknownName("key", Request.Key, KnownKeysOf(Build));
    }

private:
    std::string ChangeAttribute(const TBuildAttribute& key) {
        std::string complaint = GeneralComplaint(Request);
        if (complaint.empty()) complaint = ValueComplaint(Request);
        if (complaint.empty()) complaint = ValueComplaint(key, Request.Words.front());
        if (complaint.empty()) key.Set(Build, Request.Words.front());
        return complaint;
    }

    std::string ChangeVariable(const std::string& name) {
        TPseudoVariables& variables = *Build.GetPseudoEnvironmentVariables();
        const bool isKnown = variables.contains(name);
        std::string complaint = GeneralComplaint(Request);
        if (!complaint.empty()) return complaint;
        const bool changesEntries =
            !Request.AddedEntries.empty() || !Request.RemovedEntries.empty();
        if (changesEntries || Request.ClearEntries != Request.Words.empty() ||
            Request.Words.size() > 1)
            return Request.Key + " takes one VALUE, or --clear";
        if (Request.ClearEntries) {
            if (!isKnown) return UnknownName("key", Request.Key, KnownKeysOf(Build));
            variables.erase(name);
            return "";
        }
        // No option or path can refer to any other.
        if (!isKnown && !HasOrvaneEnvVariable(("${" + name + "}").c_str()))
            return "'" + name + "' is no name of a variable: letters, digits and '_' are wanted";
        variables[name] = Request.Words.front();
        return "";
    }

    std::string ChangeGeneral(const TGeneralSetting& key) {
        TProjectSimGeneralConfig settings;
        TProjectSimGeneralConfig* const own = Build.GetGeneralConfiguration();
        std::string complaint = ChangeSetting(Request, key, own ? own : &settings);
        if (!complaint.empty() || own || key.Get(settings) == key.Get(TProjectSimGeneralConfig()))
            return complaint;
        Build.SetGeneralConfiguration(new TProjectSimGeneralConfig(settings));
        return "";
    }

    std::string ChangeLanguage(const TLanguageSetting& key) {
        const THdlLanguage language = GetHdlLanguageFromString(Request.Language.c_str());
        std::string complaint = LanguageComplaint(Request, language, GetStoredLanguages());
        if (!complaint.empty()) return complaint;
        TProjectSimLanguageConfig settings;
        settings.SetProjectFileName(Build.GetFileName());
        TProjectSimLanguageConfig* const own = Build.GetProjectLanguageConfig(language);
        complaint =
            ChangeSetting(Request, key, language, Build.GetProjectPath(), own ? own : &settings);
        if (!complaint.empty() || own ||
            ValueOf(key, settings, "") == ValueOf(key, TProjectSimLanguageConfig(), ""))
            return complaint;
        Access.GetOrMakeLanguageSettings(language) = settings;
        return "";
    }

    const TSettingRequest& Request;
    TBuildAccess& Access;
    THdlBuildFile& Build;
};

}  // namespace

int RunSet(const TSetupArguments& arguments, const TToolStreams& streams) {
    TBuildAccess access(arguments.Build, arguments, streams);
    if (const int status = access.ReadToChange(); status != kExitDone) return status;
    const std::string complaint = TBuildChange(arguments.Setting, &access).Make();
    if (complaint.empty()) return access.Save("set");
    ReportError(streams, complaint);
    return kExitUsage;
}
