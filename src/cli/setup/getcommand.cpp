#include "cli/frame/buildaccess.h"
#include "cli/frame/jsonresults.h"
#include "cli/frame/settingstext.h"
#include "cli/setup/buildkeys.h"
#include "cli/setup/commands.h"
#include "flows/knownnames.h"
#include "services/hdl/hdllanguagetable.h"

namespace {

TJson ValueOf(const TBuildAttribute& attribute, const THdlBuildFile& build) {
    const std::string text = attribute.Get(build);
    return attribute.Kind == BUILD_FLAG ? ValueOf(SETTING_BOOL, text) : TJson(text);
}

// Where the build has no settings, a reader has the defaults.
TProjectSimGeneralConfig GeneralOf(const THdlBuildFile& build) {
    const TProjectSimGeneralConfig* const settings = build.GetGeneralConfiguration();
    return settings ? *settings : TProjectSimGeneralConfig();
}

TProjectSimLanguageConfig SettingsOf(const THdlBuildFile& build, THdlLanguage language) {
    const TProjectSimLanguageConfig* const settings = build.GetProjectLanguageConfig(language);
    return settings ? *settings : TProjectSimLanguageConfig();
}

/// Returns why there is no value; "" when there is.
std::string Find(const TSettingRequest& request, const THdlBuildFile& build, TJson* value) {
    const TLanguageSetting* const ofLanguage = FindLanguageSetting(request.Key);
    if (ofLanguage) {
        const THdlLanguage language = GetHdlLanguageFromString(request.Language.c_str());
        std::string complaint = LanguageComplaint(request, language, GetStoredLanguages());
        if (complaint.empty())
            *value = ValueOf(*ofLanguage, SettingsOf(build, language), build.GetProjectPath());
        return complaint;
    }
    if (const TBuildAttribute* const key = FindBuildAttribute(request.Key))
        *value = ValueOf(*key, build);
    else if (const TGeneralSetting* const setting = FindGeneralSetting(request.Key))
        *value = ValueOf(setting->Kind, setting->Get(GeneralOf(build)));
    if (const auto name = VariableOf(request.Key)) {
        const TPseudoVariables& variables = *build.GetPseudoEnvironmentVariables();
        const auto variable = variables.find(*name);
        if (variable != variables.end()) *value = variable->second;
    }
    if (value->IsNull()) return UnknownName("key", request.Key, KnownKeysOf(build));
    return GeneralComplaint(request);
}

int GetOne(const TSetupArguments& arguments, const THdlBuildFile& build,
           const TToolStreams& streams) {
    const TSettingRequest& request = arguments.Setting;
    TJson value;
    const std::string complaint = Find(request, build, &value);
    if (!complaint.empty()) {
        ReportError(streams, complaint);
        return kExitUsage;
    }
    if (arguments.Json) {
        TJson result = MakeResult("hdlbuild-get", "build", arguments.Build);
        result["key"] = request.Key;
        if (!request.Language.empty())
            result["language"] =
                GetStringFromHdlLanguage(GetHdlLanguageFromString(request.Language.c_str()));
        result["value"] = std::move(value);
        PrintJson(result, streams);
        return kExitDone;
    }
    const TLanguageSetting* const list = FindLanguageSetting(request.Key);
    if (!list || !IsListKind(list->Kind)) PrintLine(streams.Out, value.Text());
    for (const TJson& entry : value.GetEntries()) PrintLine(streams.Out, entry.Text());
    return kExitDone;
}

void GetAll(const TSetupArguments& arguments, const THdlBuildFile& build,
            const TToolStreams& streams) {
    std::vector<TSettingValue> attributes;
    for (const TBuildAttribute& attribute : GetBuildAttributes())
        attributes.push_back({"", attribute.Name, ValueOf(attribute, build)});
    std::vector<TSettingValue> settings;
    AddGeneralSettings(GeneralOf(build), &settings);
    for (const THdlLanguage language : GetStoredLanguages())
        if (const TProjectSimLanguageConfig* const own = build.GetProjectLanguageConfig(language))
            AddLanguageSettings(language, *own, build.GetProjectPath(), &settings);
    const TPseudoVariables& variables = *build.GetPseudoEnvironmentVariables();
    if (!arguments.Json) {
        for (const auto& [name, value] : variables)
            attributes.push_back({"", KeyOfVariable(name), value});
        PrintSettings(attributes, streams.Out);
        PrintSettings(settings, streams.Out);
        return;
    }
    TJson result = MakeResult("hdlbuild-get", "build", arguments.Build);
    TJson& members = result["attributes"] = TJson::Object();
    for (TSettingValue& attribute : attributes) members[attribute.Key] = std::move(attribute.Value);
    AddSettings(result, settings);
    result["variables"] = variables;
    PrintJson(result, streams);
}

}  // namespace

int RunGet(const TSetupArguments& arguments, const TToolStreams& streams) {
    if (arguments.Setting.Key.empty() && !arguments.Setting.Language.empty()) {
        ReportError(streams, "--language needs a KEY");
        return kExitUsage;
    }
    TBuildAccess access(arguments.Build, arguments, streams);
    if (const int status = access.Read(); status != kExitDone) return status;
    if (!arguments.Setting.Key.empty()) return GetOne(arguments, access.GetBuild(), streams);
    GetAll(arguments, access.GetBuild(), streams);
    return kExitDone;
}
