#include "cli/build/commands.h"
#include "cli/frame/languagenames.h"

std::vector<TCommand> MakeBuildCommands() {
    const auto values = std::make_shared<TBuildArguments>();
    const TRunWith<TBuildArguments> with(values);
    const TArgument build{"BUILD", &values->Build, "The build file", kRequired};
    const TArgument json = JsonArgument(*values);
    const TArgument absolute{"--absolute", &values->Paths.Absolute,
                             "Print absolute paths, not paths relative to the current directory"};
    const TArgument language{"--language", &values->Language, LanguageHelp(values->Language)};
    std::vector<TArgument> orderArguments = OrderFormatArguments(*values);
    orderArguments.insert(orderArguments.begin(), {build, absolute, language});
    const TArgument output{"-o,--output", &values->Output,
                           "Replace this file instead of printing; '-' prints"};
    const TArgument commandFileAbsolute{
        "--absolute", &values->Paths.Absolute,
        "Write absolute paths, not paths relative to the folder of the build file"};
    const TArgument gof{"--gof", &values->Gof,
                        "The form without log file, user defines and other plus options"};
    const TArgument optionsLanguage{"--language", &values->OptionsLanguage,
                                    "The option texts of the settings of " + LanguageHelp()};
    const TArgument step{"--step", &values->Step,
                         "Only the text for compile, elaborate or run, without its name"};
    const TArgument format{"--format", &values->Report.Format,
                           "text (with places and codes), json or sarif, instead of plain lines"};
    const TArgument strict{"--strict", &values->Report.Strict, "Take warnings for errors"};
    const TArgument suppress{"--suppress", &values->Report.Suppressed,
                             "Leave out a diagnostic by its code, such as HB303"};
    const TArgument sources{"--sources", &values->Sources,
                            "Scan the sources, too, and report what 'scan' finds"};
    const TArgument external{"--external", &values->ExternalLibraries,
                             "With --sources, a library whose units are not looked for, unless "
                             "the build fills it"};
    return {
        {"show", "Show what the build holds", with(RunShow), {build, json, absolute}},
        {"check",
         "Report everything that is wrong with the build",
         with(RunCheck),
         {build, json, absolute, format, strict, suppress, sources, external}},
        {"order", "Print the files to compile, one a line, in compile order", with(RunOrder),
         orderArguments},
        {"options",
         "Print the Verilog option text, or the option texts of a language",
         with(RunOptions),
         {build, json, gof, optionsLanguage, step}},
        {"command-file",
         "Write the Verilog command file",
         with(RunCommandFile),
         {build, json, output, gof, commandFileAbsolute}},
    };
}
