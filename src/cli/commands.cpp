#include "cli/commands.h"
#include "cli/build/commands.h"
#include "cli/builtwith.h"
#include "cli/change/commands.h"
#include "cli/export/commands.h"
#include "cli/frame/commandline.h"
#include "cli/graph/commands.h"
#include "cli/import/commands.h"
#include "cli/questions/commands.h"
#include "cli/run/commands.h"
#include "cli/scan/commands.h"
#include "cli/servers/commands.h"
#include "cli/settings/commands.h"
#include "cli/setup/commands.h"
#include "cli/shell/commands.h"
#include "cli/translator/commands.h"
#include <new>

namespace {

constexpr const char* kFooter =
    "Exit status: 0 done; 1 the build or project has problems (files missing, a dependency cycle,\n"
    "a section that cannot be read); 2 wrong usage, unknown names; 3 a file cannot be read or\n"
    "written. Results go to standard output, everything else to standard error. NO_COLOR turns\n"
    "colours off.";

int RunWithMemory(const std::vector<std::string>& arguments, const TToolStreams& streams) {
    if (!arguments.empty() && arguments.front() == kStepCommand)
        return RunStepCommand({arguments.begin() + 1, arguments.end()}, streams);
    if (!arguments.empty() && arguments.front() == kCompleteCommand)
        return RunComplete(MakeCommands(), {arguments.begin() + 1, arguments.end()}, streams);
    if (!arguments.empty() && arguments.front() == kManPageCommand)
        return RunManPage(MakeCommands(), {arguments.begin() + 1, arguments.end()}, streams);
    const TTool tool{
        "hdlbuild", HDLBUILDFILE_VERSION, "Reads, checks, orders, changes and runs HDL build files",
        kFooter,    MakeCommands(),       GetBuiltWith()};
    return RunCommandLine(tool, arguments, streams);
}

}  // namespace

std::vector<TCommand> MakeCommands() {
    std::vector<TCommand> commands;
    for (const auto make :
         {MakeBuildCommands, MakeQuestionCommands, MakeGraphCommands, MakeChangeCommands,
          MakeSetupCommands, MakeScanCommands, MakeExportCommands, MakeImportCommands,
          MakeRunCommands, MakeSettingsCommands, MakeServersCommands, MakeTranslatorCommands,
          MakeShellCommands})
        for (TCommand& command : make()) commands.push_back(std::move(command));
    return commands;
}

int RunTool(const std::vector<std::string>& arguments, const TToolStreams& streams) {
    try {
        return RunWithMemory(arguments, streams);
    } catch (const std::bad_alloc&) {
        ReportError(streams, "out of memory");
        return kExitFile;
    }
}
