#include "cli/servers/commands.h"

namespace {

using TValues = std::shared_ptr<TServersArguments>;

constexpr const char* kServersFooter =
    "A simulators file holds the tools of one server and does not name it: SERVER does. The "
    "default\n"
    "file, simulators.cfg in the application-data directory, is localhost's; every other server "
    "has\n"
    "a file of its own, which --file names. localhost always offers SimZorvik CL.";

std::vector<TCommand> ServersVerbs(const TValues& values) {
    const TRunWith<TServersArguments> with(values);
    const TArgument server{"SERVER", &values->Server, "The server whose tools the file holds",
                           kRequired};
    const TArgument simulator{"SIMULATOR", &values->Simulator, "Its name or number", kRequired};
    const TArgument file{"--file", &values->SimulatorsFile, "The simulators file"};
    const TArgument json = JsonArgument(*values);
    const TArgument dryRun = DryRunArgument(*values);
    return {
        {"list",
         "List the tools of a server",
         with(RunServersList),
         {{"SERVER", &values->Server, "The server; else localhost"}, file, json}},
        {"add",
         "Add a simulator to a server, or change its paths",
         with(RunServersAdd),
         {server,
          simulator,
          {"--path", &values->ExecutablePath, "The executable"},
          {"--pli", &values->PliLibrary, "The PLI library"},
          file,
          json,
          dryRun}},
        {"remove",
         "Remove a simulator from a server",
         with(RunServersRemove),
         {server, simulator, file, json, dryRun}},
        {"default-file", "Print the path of localhost's file", with(RunServersDefaultFile), {json}},
    };
}

}  // namespace

std::vector<TCommand> MakeServersCommands() {
    const auto values = std::make_shared<TServersArguments>();
    return {
        {"servers",
         "Show and change which simulators a server offers",
         nullptr,
         {},
         ServersVerbs(values),
         kServersFooter},
        {"simulators",
         "List the simulators that are known",
         TRunWith<TServersArguments>(values)(RunSimulators),
         {JsonArgument(*values)}},
    };
}
