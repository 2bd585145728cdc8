#include "cli/import/commands.h"

namespace {

constexpr const char* kFooter =
    "What a build has no words for is told on standard error, with its file and line: the exit\n"
    "status is 1 then and no build is made, unless --lossy is given. `import list` shows the\n"
    "formats and what each holds.";

}  // namespace

std::vector<TCommand> MakeImportCommands() {
    const auto values = std::make_shared<TImportArguments>();
    const TRunWith<TImportArguments> with(values);
    return {
        {"import",
         "Make a build of the files of another tool",
         with(RunImport),
         {{"FORMAT", &values->Format, "The format, or \"list\"", kRequired},
          {"FILE", &values->Files, "The files; none with \"list\""},
          {"-o,--output", &values->Output, "Make this build file, which is not there yet"},
          {"--relative-to", &values->Folder,
           "Take relative paths against this folder, not against that of each file"},
          {"--lossy", &values->IsLossy, "Make the build without what it has no words for"},
          JsonArgument(*values),
          DryRunArgument(*values)},
         {},
         kFooter},
    };
}
