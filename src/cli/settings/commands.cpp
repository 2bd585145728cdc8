#include "cli/settings/commands.h"
#include <utility>

namespace {

using TSharedArguments = std::shared_ptr<TSettingsArguments>;

std::vector<TCommand> SettingsVerbs(const TSharedArguments& values) {
    const TRunWith<TSettingsArguments> with(values);
    const TArgument name{"NAME", &values->Configuration,
                         "The configuration; Default means the first one", kRequired};
    const TArgument shownName{"NAME", &values->Configuration,
                              "The configuration; else the current one"};
    const TArgument stored{"--absolute", &values->Absolute,
                           "Print directories as the settings hold them, not relative to the "
                           "project"};
    const TArgument json = JsonArgument(*values);
    const TArgument dryRun = DryRunArgument(*values);
    std::vector<TArgument> setArguments = {name};
    for (TArgument& argument :
         SettingArguments(values->Setting, "The setting, as project files name it"))
        setArguments.push_back(std::move(argument));
    setArguments.insert(setArguments.end(), {json, dryRun});
    return {
        {"list",
         "List the configurations; '*' marks the current one",
         with(RunSettingsList),
         {json}},
        {"show",
         "Show every setting of a configuration",
         with(RunSettingsShow),
         {shownName, json, stored}},
        {"current",
         "Make a configuration the current one",
         with(RunSettingsCurrent),
         {name, json, dryRun}},
        {"copy",
         "Add a copy of a configuration, or of a template",
         with(RunSettingsCopy),
         {{"FROM", &values->Configuration, "The configuration, else the template", kRequired},
          {"TO", &values->NewName, "The name of the copy", kRequired},
          json,
          dryRun},
         {},
         "A project file that does not exist is made. The first configuration becomes current."},
        {"remove", "Remove a configuration", with(RunSettingsRemove), {name, json, dryRun}},
        {"reset",
         "Give every setting of a configuration its default",
         with(RunSettingsReset),
         {name, {"--debug", &values->Debug, "The defaults for debugging"}, json, dryRun}},
        {"set",
         "Change a setting: set NAME KEY VALUE",
         with(RunSettingsSet),
         std::move(setArguments),
         {},
         kSettingFooter,
         {"[VALUE]", &values->Setting.Words}},
    };
}

std::vector<TCommand> TemplatesVerbs(const TSharedArguments& values) {
    const TRunWith<TSettingsArguments> with(values);
    const TArgument json = JsonArgument(*values);
    return {
        {"list",
         "List the templates; '*' marks the one to start with",
         with(RunTemplatesList),
         {json}},
        {"show",
         "Show every setting of a template",
         with(RunTemplatesShow),
         {{"NAME", &values->Configuration, "The template", kRequired}, json}},
    };
}

}  // namespace

std::vector<TCommand> MakeSettingsCommands() {
    const auto values = std::make_shared<TSettingsArguments>();
    return {
        {"settings",
         "Show and change the settings in a project file",
         nullptr,
         {{"PROJECT", &values->Project, "The project file (.hpj)", kRequired}},
         SettingsVerbs(values)},
        {"templates", "Show the template configurations", nullptr, {}, TemplatesVerbs(values)},
    };
}
