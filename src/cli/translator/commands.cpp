#include "cli/translator/commands.h"

namespace {

using TValues = std::shared_ptr<TTranslatorArguments>;

std::vector<TCommand> TranslatorVerbs(const TValues& values) {
    const TRunWith<TTranslatorArguments> with(values);
    const TArgument json = JsonArgument(*values);
    const TArgument dryRun = DryRunArgument(*values);
    return {
        {"list",
         "List the switches with their help texts; '*' marks enabled ones",
         with(RunTranslatorList),
         {json}},
        {"enable",
         "Enable a switch: enable SWITCH [ARGS...]",
         with(RunTranslatorEnable),
         {json, dryRun},
         {},
         "ARGS replace the arguments that the switch has. What follows '--' is no option,\n"
         "whatever it looks like.",
         {"SWITCH [ARGS...]", &values->Words}},
        {"disable",
         "Disable a switch: disable SWITCH",
         with(RunTranslatorDisable),
         {json, dryRun},
         {},
         "A switch that is enabled by default stays enabled.",
         {"SWITCH", &values->Words}},
        {"command-line",
         "Print the translator's command line",
         with(RunTranslatorCommandLine),
         {json}},
    };
}

}  // namespace

std::vector<TCommand> MakeTranslatorCommands() {
    const auto values = std::make_shared<TTranslatorArguments>();
    return {
        {"translator",
         "Show and change the translator switches of a build",
         TRunWith<TTranslatorArguments>(values)(RunTranslatorList),
         {{"BUILD", &values->Build, "The build file", kRequired},
          {"TRANSLATOR", &values->Translator, "v2vhdl or vhdl2v", kRequired},
          JsonArgument(*values)},
         TranslatorVerbs(values)},
    };
}
