#include "cli/run/commands.h"

namespace {

constexpr const char* kFooter =
    "ninja runs the steps. What has not changed is not done again: bytes count, not times. Files\n"
    "are written below the folder of --output alone. ARGUMENTS go to the simulations. The exit\n"
    "status is 1 when a step or a simulation fails, 3 when a program is missing.";

}  // namespace

std::vector<TCommand> MakeRunCommands() {
    const auto values = std::make_shared<TRunArguments>();
    const TRunWith<TRunArguments> with(values);
    return {
        {"run",
         "Compile the build and run its simulations",
         with(RunBuild),
         {{"BUILD", &values->Build, "The build file", kRequired},
          {"--with", &values->Tools,
           "The simulator: ghdl, nvc, icarus or verilator; one for each language"},
          {"--top", &values->Tops,
           "A top-level component to run: LIBRARY.ENTITY(ARCHITECTURE) or parts; else all"},
          {"--list", &values->List, "List the simulations, and run none"},
          {"--std", &values->Standard,
           "The standard of VHDL where the build names none; else 2008"},
          {"-g,--generic", &values->Generics, "NAME=VALUE, a generic or parameter of the tops"},
          {"--seed", &values->Seed, "The seed of random numbers"},
          {"-o,--output", &values->Output, "The folder of all that is written; else NAME.run"},
          {"--only-compile", &values->OnlyCompile, "Do not simulate"},
          {"--jobs", &values->Jobs,
           "How many steps may run at a time; else what suits the processors, with --farm 256"},
          {"--timeout", &values->Timeout,
           "How long a simulation may last, as in 90, 90s, 10m or 2h; else 10m"},
          {"--fail-on", &values->FailOn,
           "Messages that fail a simulation: note, warning, error or failure and above; else "
           "error"},
          {"--waves", &values->Waves, "Write the waves of each simulation"},
          {"--keep-going", &values->KeepGoing, "Go on when a step fails"},
          {"--rerun", &values->Rerun, "Run simulations that have passed again"},
          {"--junit", &values->Junit, "Write a report in the form of JUnit to this file"},
          {"--tool-path", &values->ToolPaths,
           "A folder that is searched for programs before the search path"},
          {"--launcher", &values->Launcher, "Words that stand before each program"},
          {"--farm", &values->Farm, "Submit the simulations to a farm: slurm"},
          DryRunArgument(*values),
          JsonArgument(*values)},
         {},
         kFooter,
         {"[-- ARGUMENTS...]", &values->Words}},
    };
}
