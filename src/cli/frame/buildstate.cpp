#include "cli/frame/buildstate.h"
#include "buildfile/hdlbuildfile.h"
#include "cli/frame/settingkeys.h"
#include "flows/buildattributes.h"
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

void AddGeneralSettings(const THdlBuildFile& build, TState* state) {
    const TProjectSimGeneralConfig defaults;
    const TProjectSimGeneralConfig* const general = build.GetGeneralConfiguration();
    for (const TGeneralSetting& setting : GetGeneralSettings())
        state->emplace_back(setting.Name,
                            ValueOf(setting.Kind, setting.Get(general ? *general : defaults)));
}

void AddMissing(const TState& from, TState* to) {
    std::set<std::string> names;
    for (const auto& [name, value] : *to) names.insert(name);
    for (const auto& [name, value] : from)
        if (!names.contains(name)) to->emplace_back(name, TJson());
}

}  // namespace

TState StateOf(THdlBuildFile& build) {
    TState state;
    AddAttributes(build, &state);
    AddGeneralSettings(build, &state);
    return state;
}

void NameAll(TState* before, TState* after) {
    AddMissing(*before, after);
    AddMissing(*after, before);
}
