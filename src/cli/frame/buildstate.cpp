#include "cli/frame/buildstate.h"
#include "buildfile/hdlbuildfile.h"
#include "cli/frame/settingstext.h"
#include "flows/buildattributes.h"
#include "flows/toptexts.h"
#include "settings/storedlanguages.h"
#include "simtools/basesimtool.h"
#include <map>
#include <set>

namespace {

void AddAttributes(const THdlBuildFile& build, TState* state) {
    for (const TBuildAttribute& attribute : GetBuildAttributes()) {
        const std::string text = attribute.Get(build);
        state->emplace_back(attribute.Name, attribute.Kind == BUILD_FLAG
                                                ? ValueOf(SETTING_BOOL, text)
                                                : TJson(text));
    }
}

void AddTops(const THdlBuildFile& build, TState* state) {
    state->emplace_back("ForceTopLevelComponents", build.GetForceTopLevelComponents());
    std::map<THdlLanguage, TJson> lists;
    for (const TBuildTop& top : ListTops(build)) lists[top.Language].Add(TextOf(top));
    for (const auto& [language, list] : lists)
        state->emplace_back(
            std::string(GetStringFromHdlLanguage(language)) + " top-level components", list);
}

void AddSimulators(const THdlBuildFile& build, TState* state) {
    for (const THdlLanguage language : build.GetSimToolLanguages()) {
        const TBaseSimTool& tool = *build.GetSimTool(language);
        state->emplace_back(std::string(GetStringFromHdlLanguage(language)) + " simulator",
                            TJson{{"simulator", GetSimulatorNameFromType(tool.GetSimulatorType())},
                                  {"path", tool.GetExecutablePath()},
                                  {"pliLibrary", tool.GetPliLibrary()}});
    }
}

// What is missing counts as the defaults: making settings is no change of its own.
void AddSettings(const THdlBuildFile& build, TState* state) {
    const TProjectSimGeneralConfig generalDefaults;
    const TProjectSimLanguageConfig languageDefaults;
    const TProjectSimGeneralConfig* const general = build.GetGeneralConfiguration();
    const std::string folder = build.GetFileName() ? build.GetProjectPath() : "";
    std::vector<TSettingValue> values;
    AddGeneralSettings(general ? *general : generalDefaults, &values);
    for (const THdlLanguage language : GetStoredLanguages()) {
        const TProjectSimLanguageConfig* const settings = build.GetProjectLanguageConfig(language);
        AddLanguageSettings(language, settings ? *settings : languageDefaults, folder, &values);
    }
    for (TSettingValue& value : values)
        state->emplace_back(value.Language + (value.Language.empty() ? "" : " ") + value.Key,
                            std::move(value.Value));
}

void AddVariables(const THdlBuildFile& build, TState* state) {
    for (const auto& [name, value] : *build.GetPseudoEnvironmentVariables())
        state->emplace_back("variable." + name, value);
}

void AddMissing(const TState& from, TState* to) {
    std::set<std::string> names;
    for (const auto& [name, value] : *to) names.insert(name);
    for (const auto& [name, value] : from)
        if (!names.contains(name)) to->emplace_back(name, TJson());
}

}  // namespace

TState StateOf(const THdlBuildFile& build) {
    TState state;
    AddAttributes(build, &state);
    AddTops(build, &state);
    AddSimulators(build, &state);
    AddSettings(build, &state);
    AddVariables(build, &state);
    return state;
}

void NameAll(TState* before, TState* after) {
    AddMissing(*before, after);
    AddMissing(*after, before);
}
