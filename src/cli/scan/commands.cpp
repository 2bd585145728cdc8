#include "cli/scan/commands.h"

namespace {

constexpr const char* kFooter =
    "A source depends on the files that hold what it needs to be compiled. Dependencies that the\n"
    "scan cannot explain stay and are reported. Instances of components order nothing.";

}  // namespace

std::vector<TCommand> MakeScanCommands() {
    const auto values = std::make_shared<TScanArguments>();
    const TRunWith<TScanArguments> with(values);
    return {
        {"scan",
         "Find the dependencies of the sources",
         with(RunScan),
         {{"PATH", &values->Paths,
           "The build file; with --output the folders, files and patterns of its sources",
           kRequired},
          {"-o,--output", &values->Output, "Make this build file, which is not there yet"},
          {"--library", &values->Libraries,
           "NAME=PATTERN: the library of the sources that match, in a build that is made"},
          {"--exclude", &values->Excluded,
           "Pass over what matches this pattern, a name or a path, when a build is made"},
          {"--check", &values->Check,
           "Change nothing; exit status 1 when a dependency is missing, with --exact when one is "
           "unexplained, with --sort when the order is none"},
          {"--exact", &values->Exact, "Remove dependencies that the scan cannot explain"},
          {"--sort", &values->Sort,
           "Put Verilog sources into compile order, as a build that is made has them; they are "
           "compiled as they are listed"},
          {"--external", &values->ExternalLibraries,
           "A library whose units are not looked for, unless the build fills it"},
          {"--set-tops", &values->SetTops,
           "Record entities that nobody instantiates as top-level components"},
          JsonArgument(*values),
          DryRunArgument(*values)},
         {},
         kFooter},
    };
}
