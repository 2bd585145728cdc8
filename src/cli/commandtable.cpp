#include "cli/commandtable.h"
#include "cli/commands.h"

namespace {

using T = TToolArguments;

constexpr bool kRequired = true;

const TArgument kBuild{"BUILD", &T::Build, "The build file", kRequired};
const TArgument kJson{"--json", &T::Json, "Print one JSON object"};
const TArgument kAbsolute{"--absolute", &T::Absolute,
                          "Print absolute paths, not paths relative to the current directory"};
const TArgument kLanguage{
    "--language", &T::Language,
    "Verilog, VHDL (default), Bluespec, SystemC, C++, Specman or TestBuilder"};
const TArgument kTsv{"--tsv", &T::Tsv, "Print library, tabulator, path"};
const TArgument kOutput{"-o,--output", &T::Output, "Replace this file instead of printing"};
const TArgument kGof{"--gof", &T::Gof,
                     "The form without log file, user defines and other plus options"};
const TArgument kDryRun{"--dry-run", &T::DryRun, "Show what would change, and change nothing"};

const TArgument kProject{"PROJECT", &T::Project, "The project file (.hpj)", kRequired};
const TArgument kName{"NAME", &T::Configuration, "The configuration; Default means the first one",
                      kRequired};
const TArgument kShownName{"NAME", &T::Configuration, "The configuration; else the current one"};
const TArgument kTemplate{"NAME", &T::Configuration, "The template", kRequired};
const TArgument kStored{"--absolute", &T::Absolute,
                        "Print directories as the settings hold them, not relative to the project"};

std::vector<TCommand> SettingsVerbs() {
    return {
        {"list", "List the configurations; '*' marks the current one", RunSettingsList, {kJson}},
        {"show",
         "Show every setting of a configuration",
         RunSettingsShow,
         {kShownName, kJson, kStored}},
        {"current",
         "Make a configuration the current one",
         RunSettingsCurrent,
         {kName, kJson, kDryRun}},
        {"copy",
         "Add a copy of a configuration, or of a template",
         RunSettingsCopy,
         {{"FROM", &T::Configuration, "The configuration, else the template", kRequired},
          {"TO", &T::NewName, "The name of the copy", kRequired},
          kJson,
          kDryRun},
         {},
         "A project file that does not exist is made. The first configuration becomes current."},
        {"remove", "Remove a configuration", RunSettingsRemove, {kName, kJson, kDryRun}},
        {"reset",
         "Give every setting of a configuration its default",
         RunSettingsReset,
         {kName, {"--debug", &T::Debug, "The defaults for debugging"}, kJson, kDryRun}},
        {"set",
         "Change a setting: set NAME KEY VALUE",
         RunSettingsSet,
         {kName,
          {"KEY", &T::Key, "The setting, as project files name it", kRequired},
          {"--language", &T::SettingsLanguage, "Verilog, VHDL, Bluespec, C++ or TestBuilder"},
          {"--add", &T::AddedEntries, "Add this entry to a list"},
          {"--remove", &T::RemovedEntries, "Remove this entry from a list"},
          {"--clear", &T::ClearEntries, "Empty a list"},
          kJson,
          kDryRun},
         {},
         "VALUE may begin with '-'; write --add=ENTRY for an entry that does. A list is emptied\n"
         "first, then entries are removed, then added. Directories are relative to the project.\n"
         "What stands behind '--' is no option, whatever it looks like.",
         "[VALUE]"},
    };
}

std::vector<TCommand> ServersVerbs() {
    const TArgument server{"SERVER", &T::Server, "The server whose tools the file holds",
                           kRequired};
    const TArgument simulator{"SIMULATOR", &T::Simulator, "Its name or number", kRequired};
    const TArgument file{"--file", &T::SimulatorsFile, "The simulators file"};
    return {
        {"list",
         "List the tools of a server",
         RunServersList,
         {{"SERVER", &T::Server, "The server; else localhost"}, file, kJson}},
        {"add",
         "Add a simulator to a server, or change its paths",
         RunServersAdd,
         {server,
          simulator,
          {"--path", &T::ExecutablePath, "The executable"},
          {"--pli", &T::PliLibrary, "The PLI library"},
          file,
          kJson,
          kDryRun}},
        {"remove",
         "Remove a simulator from a server",
         RunServersRemove,
         {server, simulator, file, kJson, kDryRun}},
        {"default-file", "Print the path of localhost's file", RunServersDefaultFile, {kJson}},
    };
}

std::vector<TCommand> TranslatorVerbs() {
    return {
        {"list",
         "List the switches with their help texts; '*' marks enabled ones",
         RunTranslatorList,
         {kJson}},
        {"enable",
         "Enable a switch: enable SWITCH [ARGS...]",
         RunTranslatorEnable,
         {kJson, kDryRun},
         {},
         "ARGS replace the arguments that the switch has. What stands behind '--' is no option,\n"
         "whatever it looks like.",
         "SWITCH [ARGS...]"},
        {"disable",
         "Disable a switch: disable SWITCH",
         RunTranslatorDisable,
         {kJson, kDryRun},
         {},
         "A switch that is enabled by default stays enabled.",
         "SWITCH"},
        {"command-line", "Print the translator's command line", RunTranslatorCommandLine, {kJson}},
    };
}

constexpr const char* kServersFooter =
    "A simulators file holds the tools of one server and does not name it: SERVER does. The "
    "default\n"
    "file, simulators.cfg in the application-data directory, is localhost's; every other server "
    "has\n"
    "a file of its own, which --file names. localhost always offers SimZorvik CL.";

}  // namespace

// clang-format off
const std::vector<TCommand>& Commands() {
    static const std::vector<TCommand> commands = {
        {"show", "Show what the build holds", RunShow, {kBuild, kJson, kAbsolute}},
        {"check", "Report everything that is wrong with the build", RunCheck,
         {kBuild, kJson, kAbsolute}},
        {"order", "Print the files to compile, one a line, in compile order", RunOrder,
         {kBuild, kJson, kAbsolute, kLanguage, kTsv}},
        {"options", "Print the Verilog option text", RunOptions, {kBuild, kJson, kGof}},
        {"command-file", "Write the Verilog command file", RunCommandFile,
         {kBuild, kJson, kOutput, kGof}},
        {"settings", "Show and change the settings in a project file", nullptr, {kProject},
         SettingsVerbs()},
        {"templates", "Show the template configurations", nullptr, {},
         {{"list", "List the templates; '*' marks the one to start with", RunTemplatesList, {kJson}},
          {"show", "Show every setting of a template", RunTemplatesShow, {kTemplate, kJson}}}},
        {"servers", "Show and change which simulators a server offers", nullptr, {},
         ServersVerbs(), kServersFooter},
        {"simulators", "List the simulators that are known", RunSimulators, {kJson}},
        {"translator", "Show and change the translator switches of a build", RunTranslatorList,
         {kBuild, {"TRANSLATOR", &T::Translator, "v2vhdl or vhdl2v", kRequired}, kJson},
         TranslatorVerbs()},
    };
    return commands;
}
// clang-format on
