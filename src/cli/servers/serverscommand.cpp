#include "cli/frame/jsonresults.h"
#include "cli/frame/texts.h"
#include "cli/servers/commands.h"
#include "cli/servers/serveraccess.h"
#include "flows/knownnames.h"
#include "flows/simulatornames.h"
#include "services/names/isfilename.h"

namespace {

/// The simulator of the arguments; SIM_NONE, with one line on Err, when no server can offer it.
TSimulatorType FindOfferable(const TServersArguments& arguments, const TToolStreams& streams) {
    const TSimulatorType type = FindSimulator(arguments.Simulator);
    if (!GetSimulatorTable()[static_cast<std::size_t>(type)].Languages.empty()) return type;
    ReportError(streams,
                UnknownName("simulator", arguments.Simulator, KnownSimulators(LANGUAGE_NONE)));
    return SIM_NONE;
}

std::string OfferedNames(const std::vector<TBaseSimTool>& tools) {
    std::vector<std::string> names;
    TSimulatorType last = SIM_NONE;
    for (const TBaseSimTool& tool : tools) {
        if (tool.GetSimulatorType() == last) continue;  // once for each language
        last = tool.GetSimulatorType();
        names.emplace_back(GetSimulatorNameFromType(last));
    }
    return JoinNames(names);
}

TJson ToolsAsJson(const std::vector<TBaseSimTool>& tools) {
    TJson list = TJson::Array();
    for (const TBaseSimTool& tool : tools)
        list.Add({{"simulator", GetSimulatorNameFromType(tool.GetSimulatorType())},
                  {"language", GetStringFromHdlLanguage(tool.GetLanguage())},
                  {"path", tool.GetExecutablePath()},
                  {"pliLibrary", tool.GetPliLibrary()}});
    return list;
}

void PrintTools(const std::vector<TBaseSimTool>& tools, std::ostream& out) {
    std::vector<std::vector<std::string>> rows = {{"SIMULATOR", "LANGUAGE", "PATH", "PLI LIBRARY"}};
    for (const TBaseSimTool& tool : tools)
        rows.push_back({GetSimulatorNameFromType(tool.GetSimulatorType()),
                        GetStringFromHdlLanguage(tool.GetLanguage()), tool.GetExecutablePath(),
                        tool.GetPliLibrary()});
    PrintTable(std::move(rows), out);
}

}  // namespace

int RunServersList(const TServersArguments& arguments, const TToolStreams& streams) {
    TServerAccess server(arguments, streams);
    if (const int status = server.Read(true); status != kExitDone) return status;
    if (!arguments.Json) {
        PrintTools(server.GetTools(), streams.Out);
        return kExitDone;
    }
    TJson result = MakeResult("hdlbuild-servers-list", "file", server.GetFileText());
    result["server"] = arguments.Server;
    result["tools"] = ToolsAsJson(server.GetTools());
    PrintJson(result, streams);
    return kExitDone;
}

int RunServersAdd(const TServersArguments& arguments, const TToolStreams& streams) {
    const TSimulatorType type = FindOfferable(arguments, streams);
    if (type == SIM_NONE) return kExitUsage;
    TServerAccess server(arguments, streams);
    if (const int status = server.ReadToChange(false); status != kExitDone) return status;
    TBaseSimToolServerClientCourier& courier = server.GetCourier();
    courier.CreateOrGetSimTool(arguments.Server.c_str(), type);
    for (TBaseSimTool& tool : *courier.GetSimToolList(TRope(arguments.Server))) {
        if (tool.GetSimulatorType() != type) continue;
        if (!arguments.ExecutablePath.empty())
            tool.SetExecutablePath(arguments.ExecutablePath.c_str());
        if (!arguments.PliLibrary.empty()) tool.SetPliLibrary(arguments.PliLibrary.c_str());
    }
    return server.Save("add");
}

int RunServersRemove(const TServersArguments& arguments, const TToolStreams& streams) {
    const TSimulatorType type = FindOfferable(arguments, streams);
    if (type == SIM_NONE) return kExitUsage;
    TServerAccess server(arguments, streams);
    if (const int status = server.ReadToChange(true); status != kExitDone) return status;
    const std::string offered = OfferedNames(server.GetTools());
    TBaseSimTool removed;
    removed.SetSimulatorType(type);
    if (!server.GetCourier().RemoveServerAndTool(TRope(arguments.Server), &removed)) {
        ReportError(streams, arguments.Server + " does not offer '" + arguments.Simulator +
                                 "'; it offers: " + (offered.empty() ? "none" : offered));
        return kExitUsage;
    }
    // Every courier starts with this tool: removing it clears its paths only.
    if (arguments.Server == "localhost")
        server.GetCourier().CreateOrGetSimTool("localhost", SIM_ZORVIK_CL);
    return server.Save("remove");
}

int RunServersDefaultFile(const TServersArguments& arguments, const TToolStreams& streams) {
    const std::string file =
        TBaseSimToolServerClientCourier::GetDefaultSimConfigFile()->Canonical(false);
    if (arguments.Json)
        PrintJson(MakeResult("hdlbuild-servers-default-file", "file", file), streams);
    else
        PrintLine(streams.Out, file);
    return kExitDone;
}
