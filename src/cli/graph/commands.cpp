#include "cli/graph/commands.h"

namespace {

constexpr const char* kFooter =
    "A node points to what it needs. Dependencies are those that the build records; 'hdlbuild "
    "scan'\n"
    "finds them in the sources.";

}  // namespace

std::vector<TCommand> MakeGraphCommands() {
    const auto values = std::make_shared<TGraphArguments>();
    const TRunWith<TGraphArguments> with(values);
    return {
        {"graph",
         "Draw what needs what",
         with(RunGraph),
         {{"BUILD", &values->Build, "The build file", kRequired},
          JsonArgument(*values),
          {"--by", &values->By, "What a node is: file, library or folder (default: file)"},
          {"--around", &values->Around, "Only this file, what it needs and what needs it"},
          {"--depth", &values->Depth,
           "Over so many dependencies in a row from the file of --around (default: 1)"},
          {"-o,--output", &values->Output,
           "Replace this file (.dot, .svg or .html) instead of printing dot; '-' prints"},
          {"--format", &values->Format, "dot, svg or html, whatever the output's name"},
          {"--absolute", &values->Paths.Absolute,
           "Name files by absolute paths, not by paths relative to the current directory"}},
         {},
         kFooter},
    };
}
