#include "cli/setup/commands.h"
#include "cli/frame/languagenames.h"

namespace {

using TValues = std::shared_ptr<TSetupArguments>;

std::vector<TCommand> TopVerbs(const TValues& values) {
    const TRunWith<TSetupArguments> with(values);
    const TArgument components{"COMPONENT", &values->Components,
                               "LIBRARY.ENTITY(ARCHITECTURE), or LIBRARY.ENTITY", kRequired};
    const TArgument json = JsonArgument(*values);
    const TArgument dryRun = DryRunArgument(*values);
    return {
        {"list", "List the top-level components", with(RunTopList), {json}},
        {"add",
         "Add top-level components",
         with(RunTopAdd),
         {components,
          {"--language", &values->Language,
           LanguageHelp() + "; else the top-level language of the build"},
          json,
          dryRun}},
        {"remove",
         "Remove top-level components",
         with(RunTopRemove),
         {components,
          {"--language", &values->Language, LanguageHelp() + "; else every one that lists them"},
          json,
          dryRun}},
        {"force",
         "Force the top-level components on the simulators, or not",
         with(RunTopForce),
         {{"STATE", &values->State, "on or off", kRequired}, json, dryRun}},
    };
}

}  // namespace

std::vector<TCommand> MakeSetupCommands() {
    const auto values = std::make_shared<TSetupArguments>();
    const TRunWith<TSetupArguments> with(values);
    const TArgument build{"BUILD", &values->Build, "The build file", kRequired};
    const TArgument json = JsonArgument(*values);
    const TArgument dryRun = DryRunArgument(*values);
    constexpr const char* kKey =
        "An attribute or setting, as build files name it, or variable.NAME";
    std::vector<TArgument> setArguments = {build};
    for (TArgument& argument : SettingArguments(values->Setting, kKey))
        setArguments.push_back(std::move(argument));
    setArguments.insert(setArguments.end(), {json, dryRun});
    return {
        {"top",
         "Show and change the top-level components",
         with(RunTopList),
         {build, json},
         TopVerbs(values),
         "Without LIBRARY, the library of a COMPONENT is the build's destination library, else "
         "work."},
        {"set",
         "Change an attribute, a setting or a variable: set BUILD KEY VALUE",
         with(RunSet),
         std::move(setArguments),
         {},
         kSettingFooter,
         {"[VALUE]", &values->Setting.Words}},
        {"get",
         "Print an attribute, a setting or a variable, or all of them",
         with(RunGet),
         {build,
          {"KEY", &values->Setting.Key, kKey},
          {"--language", &values->Setting.Language, SettingLanguageHelp()},
          json}},
        {"tool",
         "Show and change the simulator of a language",
         with(RunSimulator),
         {build,
          {"LANGUAGE", &values->Language, LanguageHelp(), kRequired},
          {"SIMULATOR", &values->Simulator, "Its name or number, or none; else it is shown"},
          {"--path", &values->ToolPath, "The executable"},
          {"--pli", &values->PliLibrary, "The PLI library"},
          json,
          dryRun},
         {},
         "Of the simulator that the language has already, what is not given stays as it is."},
        {"use",
         "Give a build the settings of a project's configuration",
         with(RunUse),
         {build,
          {"PROJECT", &values->Project, "The project file (.hpj)", kRequired},
          {"CONFIGURATION", &values->Configuration,
           "The configuration, Default meaning the first one; else the current one"},
          json,
          dryRun}},
    };
}
