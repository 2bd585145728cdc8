#include "cli/export/commands.h"

namespace {

constexpr const char* kFooter =
    "What a format has no words for is told on standard error. A name that it cannot hold is an\n"
    "error: nothing is written then. `--to list` shows the formats and what each can hold.";

}  // namespace

std::vector<TCommand> MakeExportCommands() {
    const auto values = std::make_shared<TExportArguments>();
    const TRunWith<TExportArguments> with(values);
    return {
        {"export",
         "Write the build for another tool",
         with(RunExport),
         {{"BUILD", &values->Build, "The build file; not needed with --to list"},
          {"--to", &values->Format, "The format, or \"list\"", kRequired},
          {"-o,--output", &values->Output,
           "Write this file, which paths are relative to; \"-\" is standard output"},
          {"--top", &values->Top,
           "The top-level component: LIBRARY.ENTITY(ARCHITECTURE) or parts; with what it needs"},
          {"--absolute", &values->Absolute, "Write whole paths"},
          JsonArgument(*values)},
         {},
         kFooter},
    };
}
