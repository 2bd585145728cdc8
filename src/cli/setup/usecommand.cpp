#include "cli/frame/buildaccess.h"
#include "cli/frame/projectconfigurations.h"
#include "cli/frame/settingstext.h"
#include "cli/setup/commands.h"
#include "flows/textreaders.h"
#include "services/names/isfilename.h"
#include "settings/projectsimconfig.h"
#include <algorithm>

namespace {

int ReadProject(const TSetupArguments& arguments, const TToolStreams& streams,
                TProjectSimSettings* settings) {
    TEditedFile file(ISFileName::NewISFileName(arguments.Project.c_str()));
    TXMLReadError error;
    THpjFileResult result = HPJ_FILE_UNREADABLE;
    if (file.Read(&error))
        result = ReadProjectText(file.GetBytes(), file.GetFile(), settings, &error);
    return ReportProjectResult(result, error, arguments.Project, streams);
}

bool IsDefault(THdlLanguage language, const TProjectSimLanguageConfig& settings) {
    std::vector<TSettingValue> values;
    std::vector<TSettingValue> defaults;
    AddLanguageSettings(language, settings, "", &values);
    AddLanguageSettings(language, TProjectSimLanguageConfig(), "", &defaults);
    return std::equal(
        values.begin(), values.end(), defaults.begin(),
        [](const TSettingValue& a, const TSettingValue& b) { return a.Value == b.Value; });
}

void UseGeneral(const TProjectSimGeneralConfig& settings, THdlBuildFile& build) {
    if (TProjectSimGeneralConfig* const own = build.GetGeneralConfiguration())
        *own = settings;
    else
        build.SetGeneralConfiguration(new TProjectSimGeneralConfig(settings));
    // The flags tell what the build has as well: no group may get lost.
    for (const THdlLanguage language : ListUnsavedGroups(build)) CompileLanguage(build, language);
}

void Use(const TProjectSimConfig& configuration, TBuildAccess* access) {
    THdlBuildFile& build = access->GetBuild();
    UseGeneral(*configuration.GetGeneralConfiguration(), build);
    for (const THdlLanguage language : LanguagesOf(configuration)) {
        const TProjectSimLanguageConfig& settings =
            *configuration.GetProjectLanguageConfig(language);
        if (!build.GetProjectLanguageConfig(language) && IsDefault(language, settings)) continue;
        TProjectSimLanguageConfig& own = access->GetOrMakeLanguageSettings(language);
        own = settings;
        // They are whole by now.
        own.SetProjectFileName(build.GetFileName(), true);
    }
}

}  // namespace

int RunUse(const TSetupArguments& arguments, const TToolStreams& streams) {
    TProjectSimSettings settings;
    if (const int status = ReadProject(arguments, streams, &settings); status != kExitDone)
        return status;
    const TProjectSimConfig* const configuration =
        FindNamedOrCurrent(settings, arguments.Configuration, streams);
    if (!configuration) return kExitUsage;
    TBuildAccess access(arguments.Build, arguments, streams);
    if (const int status = access.ReadToChange(); status != kExitDone) return status;
    Use(*configuration, &access);
    return access.Save("use");
}
