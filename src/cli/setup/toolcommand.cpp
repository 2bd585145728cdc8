#include "buildfile/hdlbuildfile.h"
#include "cli/frame/buildaccess.h"
#include "cli/frame/jsonresults.h"
#include "cli/frame/languagenames.h"
#include "cli/setup/commands.h"
#include "flows/knownnames.h"
#include "flows/simulatornames.h"
#include "simtools/basesimtool.h"
#include <algorithm>

namespace {

constexpr const char* kNone = "none";

int Show(const TSetupArguments& arguments, const TBaseSimTool* tool, const TToolStreams& streams) {
    if (!arguments.Json && !tool) {
        PrintLine(streams.Out, kNone);
        return kExitDone;
    }
    if (!arguments.Json) {
        PrintTable({{"SIMULATOR", "PATH", "PLI LIBRARY"},
                    {GetSimulatorNameFromType(tool->GetSimulatorType()), tool->GetExecutablePath(),
                     tool->GetPliLibrary()}},
                   streams.Out);
        return kExitDone;
    }
    TJson result = MakeResult("hdlbuild-tool-show", "build", arguments.Build);
    result["language"] =
        GetStringFromHdlLanguage(GetHdlLanguageFromString(arguments.Language.c_str()));
    result["tool"] = TJson();
    if (tool)
        result["tool"] = {{"simulator", GetSimulatorNameFromType(tool->GetSimulatorType())},
                          {"path", tool->GetExecutablePath()},
                          {"pliLibrary", tool->GetPliLibrary()}};
    PrintJson(result, streams);
    return kExitDone;
}

bool Simulates(TSimulatorType type, THdlLanguage language) {
    const auto& languages = GetSimulatorTable()[static_cast<std::size_t>(type)].Languages;
    return std::find(languages.begin(), languages.end(), language) != languages.end();
}

/// What is wrong with the arguments; "" when nothing is.
std::string ComplaintOf(const TSetupArguments& arguments, THdlLanguage language) {
    const std::string& simulator = arguments.Simulator;
    const bool hasPaths = !arguments.ToolPath.empty() || !arguments.PliLibrary.empty();
    if (simulator.empty() || simulator == kNone)
        return hasPaths ? "--path and --pli need a SIMULATOR" : "";
    if (Simulates(FindSimulator(simulator), language)) return "";
    const std::string name = GetStringFromHdlLanguage(language);
    const std::vector<std::string> known = KnownSimulators(language);
    return known.empty() ? "no simulator is known for " + name
                         : WithKnownNames("'" + simulator + "' is no simulator for " + name,
                                          simulator, known);
}

/// The paths of the same simulator stay unless others are given.
TBaseSimTool WantedTool(const TSetupArguments& arguments, THdlLanguage language,
                        const TBaseSimTool* present) {
    const TSimulatorType type = FindSimulator(arguments.Simulator);
    TBaseSimTool tool;
    if (present && present->GetSimulatorType() == type) tool = *present;
    tool.SetLanguage(language);
    tool.SetSimulatorType(type);
    if (!arguments.ToolPath.empty()) tool.SetExecutablePath(arguments.ToolPath.back().c_str());
    if (!arguments.PliLibrary.empty()) tool.SetPliLibrary(arguments.PliLibrary.back().c_str());
    return tool;
}

}  // namespace

int RunSimulator(const TSetupArguments& arguments, const TToolStreams& streams) {
    const THdlLanguage language = FindLanguage(arguments.Language, streams);
    if (language == LANGUAGE_NONE) return kExitUsage;
    const std::string complaint = ComplaintOf(arguments, language);
    if (!complaint.empty()) {
        ReportError(streams, complaint);
        return kExitUsage;
    }
    TBuildAccess access(arguments.Build, arguments, streams);
    const bool changes = !arguments.Simulator.empty();
    const int status = changes ? access.ReadToChange() : access.Read();
    if (status != kExitDone) return status;
    THdlBuildFile& build = access.GetBuild();
    if (!changes) return Show(arguments, build.GetSimTool(language), streams);
    if (arguments.Simulator == kNone) {
        build.RemoveSimTool(language);
        return access.Save("tool");
    }
    build.AddSimTool(new TBaseSimTool(WantedTool(arguments, language, build.GetSimTool(language))));
    // Without them the library's next save leaves all simulators out.
    if (!build.GetGeneralConfiguration())
        build.SetGeneralConfiguration(new TProjectSimGeneralConfig);
    return access.Save("tool");
}
