#include "cli/change/commands.h"
#include "cli/frame/languagenames.h"

std::vector<TCommand> MakeChangeCommands() {
    const auto values = std::make_shared<TChangeArguments>();
    const TRunWith<TChangeArguments> with(values);
    const TArgument build{"BUILD", &values->Build, "The build file", kRequired};
    const TArgument json = JsonArgument(*values);
    const TArgument dryRun = DryRunArgument(*values);
    const TArgument first{"--first", &values->First, "Put them in front of all others"};
    const TArgument before{"--before", &values->Before, "Put them in front of this source"};
    const TArgument after{"--after", &values->After, "Put them behind this source"};
    return {
        {"new",
         "Make a build file without sources",
         with(RunNew),
         {build,
          {"--top-language", &values->TopLanguage, LanguageHelp(values->TopLanguage)},
          {"--library", &values->Library, "The library that sources are compiled into"},
          json,
          dryRun}},
        {"add",
         "Add sources: files, folders, patterns",
         with(RunAdd),
         {build,
          {"PATH", &values->Paths, "Files, patterns with *, ? and **, and with -r folders",
           kRequired},
          {"-r,--recursive", &values->EntersFolders, "Add the sources in folders"},
          {"--language", &values->Language, LanguageHelp() + "; else what the extension tells"},
          {"--library", &values->Library, "The library that they are compiled into"},
          {"--as-library-file", &values->IsLibraryFile, "Mark them as library files"},
          first,
          before,
          after,
          {"--exclude", &values->Excluded,
           "Pass over what matches this pattern: a name, or a path"},
          json,
          dryRun},
         {},
         "Hidden files and folders and the folders of build outputs are passed over, unless a "
         "PATH\n"
         "names them, and in folders the files that others include."},
        {"source",
         "Change sources that are there",
         with(RunSource),
         {build,
          {"PATH", &values->Paths, "Sources of the build, or patterns with *, ? and **", kRequired},
          {"--library", &values->Library, "The library that they are compiled into"},
          {"--as-library-file", &values->LibraryFile, "Mark them as library files: on or off"},
          first,
          before,
          after,
          json,
          dryRun}},
        {"remove",
         "Remove sources, from dependencies as well",
         with(RunRemove),
         {build,
          {"PATH", &values->Paths, "Sources of the build, or patterns with *, ? and **"},
          {"--missing", &values->IsMissing, "Remove those whose files do not exist"},
          json,
          dryRun}},
        {"rename",
         "Give a source another name, in dependencies as well",
         with(RunRename),
         {build,
          {"OLD", &values->File, "The source as it is listed", kRequired},
          {"NEW", &values->NewFile, "The file that takes its place", kRequired},
          json,
          dryRun},
         {},
         "The file on the disk stays as it is."},
        {"depend",
         "Change the dependencies of a source",
         with(RunDepend),
         {build,
          {"FILE", &values->File, "The source", kRequired},
          {"--on", &values->On, "Compile it behind this source"},
          {"--not-on", &values->NotOn, "Take this file out of its dependencies"},
          {"--clear", &values->IsClearing, "Take all out that it has"},
          json,
          dryRun}},
    };
}
