#include "cli/questions/commands.h"
#include "cli/frame/languagenames.h"

std::vector<TCommand> MakeQuestionCommands() {
    const auto values = std::make_shared<TQuestionArguments>();
    const TRunWith<TQuestionArguments> with(values);
    const TArgument build{"BUILD", &values->Build, "The build file", kRequired};
    const TArgument absolute{"--absolute", &values->Paths.Absolute,
                             "Print absolute paths, not paths relative to the current directory"};
    const TArgument language{"--language", &values->Language, "Only sources in " + LanguageHelp()};
    const TArgument library{"--library", &values->Library,
                            "Only sources that are compiled into this library"};
    const TArgument missing{"--missing", &values->Missing, "Only sources that do not exist"};
    std::vector<TArgument> listArguments = {build, absolute, language, library, missing};
    for (TArgument& format : ListFormatArguments(*values))
        listArguments.push_back(std::move(format));
    const TArgument file{"FILE", &values->File, "A source; without one, the answer is for all"};
    const TArgument all{"--all", &values->All, "Also what is needed through others"};
    const TArgument reverse{"--reverse", &values->Reverse, "Who needs it, not what it needs"};
    const TArgument pathTo{"--path-to", &values->PathTo,
                           "The shortest chain of needs to this source"};
    const TArgument units{"--units", &values->Units,
                          "Scan the sources, and print the needs with their places"};
    const TArgument top{"--top", &values->Tops,
                        "A unit, as in work.tb(sim) or tb; else the top-level components of the "
                        "build"};
    const TArgument topLanguage{"--language", &values->Language,
                                "The language of the units; else any"};
    const TArgument tsv{"--tsv", &values->Tsv, "Print library, tabulator, path"};
    const TArgument rest{"--rest", &values->Rest, "Print the sources that are not needed"};
    const TArgument first{"A", &values->Build, "A build file", kRequired};
    const TArgument second{"B", &values->Other, "Another one", kRequired};
    const TArgument sameFolder{"--same-folder", &values->SameFolder,
                               "Take the paths of B as if it stood in the folder of A"};
    return {
        {"list", "List the sources with their libraries, flags and number of dependencies",
         with(RunList), listArguments},
        {"deps",
         "Print what a source needs, who needs it, and why",
         with(RunDeps),
         {build, file, JsonArgument(*values), absolute, all, reverse, pathTo, units}},
        {"needed",
         "Print the files that top-level units need, in compile order",
         with(RunNeeded),
         {build, JsonArgument(*values), absolute, top, topLanguage, rest, tsv}},
        {"diff",
         "Compare two builds; exit status 1 when they differ",
         with(RunDiff),
         {first, second, JsonArgument(*values), absolute, sameFolder}},
    };
}
