#include "cli/frame/settingstext.h"
#include "cli/settings/commands.h"
#include "cli/settings/projectaccess.h"
#include "flows/knownnames.h"

namespace {

/// Why the setting cannot be changed; "" when it is. Directories are relative to `directory`.
std::string Change(const TSettingRequest& request, TProjectSimConfig* configuration,
                   const std::string& directory) {
    if (const TGeneralSetting* const key = FindGeneralSetting(request.Key))
        return ChangeSetting(request, *key, configuration->GetGeneralConfiguration());
    const TLanguageSetting* const key = FindLanguageSetting(request.Key);
    if (!key) return UnknownName("setting", request.Key, KnownKeys());
    const THdlLanguage language = GetHdlLanguageFromString(request.Language.c_str());
    std::string complaint = LanguageComplaint(request, language, LanguagesOf(*configuration));
    if (!complaint.empty()) return complaint;
    return ChangeSetting(request, *key, language, directory,
                         configuration->GetProjectLanguageConfig(language));
}

}  // namespace

int RunSettingsSet(const TSettingsArguments& arguments, const TToolStreams& streams) {
    TProjectAccess project(arguments, streams);
    if (const int status = project.ReadToChange(); status != kExitDone) return status;
    TProjectSimConfig* configuration = project.FindConfiguration();
    if (!configuration) return kExitUsage;
    const std::string complaint = Change(arguments.Setting, configuration, project.GetDirectory());
    if (complaint.empty()) return project.Save("set");
    ReportError(streams, complaint);
    return kExitUsage;
}
