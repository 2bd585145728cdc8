#include "buildfile/hdlbuildfile.h"
#include "cli/build/commands.h"
#include "cli/frame/filereports.h"
#include "cli/frame/jsonresults.h"
#include "cli/frame/languagenames.h"
#include "flows/knownnames.h"
#include <algorithm>

namespace {

/// A step of a simulator's run, and the text that the settings of a language have for it.
struct TStep {
    const char* Name;
    std::string (THdlBuildFile::*GetOptions)(THdlLanguage language);
};

constexpr TStep kSteps[] = {
    {"compile", &THdlBuildFile::GetCompileOptions},
    {"elaborate", &THdlBuildFile::GetElaboratorOptions},
    {"run", &THdlBuildFile::GetRuntimeOptions},
};

/// kExitUsage, with an error line on Err, for options that do not go together.
int CheckUsage(const TBuildArguments& arguments, const TToolStreams& streams) {
    std::vector<std::string> known;
    for (const TStep& step : kSteps) known.emplace_back(step.Name);
    const bool isKnown = arguments.Step.empty() ||
                         std::find(known.begin(), known.end(), arguments.Step) != known.end();
    std::string complaint;
    if (arguments.OptionsLanguage.empty() && !arguments.Step.empty())
        complaint = "--step needs --language";
    else if (!arguments.OptionsLanguage.empty() && arguments.Gof)
        complaint = "--gof excludes --language";
    else if (!isKnown)
        complaint = UnknownName("step", arguments.Step, known);
    if (complaint.empty()) return kExitDone;
    ReportError(streams, complaint);
    return kExitUsage;
}

int PrintVerilogOptionText(const TBuildArguments& arguments, const TToolStreams& streams) {
    THdlBuildFile build;
    const int status = LoadBuildWithSettings(LANGUAGE_VERILOG, arguments, streams, &build);
    if (status == kExitFile) return status;
    build.SetGOFBuildFileFlag(arguments.Gof);
    const std::string options = build.GetVerilogCommandLineOptions();
    if (!arguments.Json) {
        PrintWords(streams.Out, options);
        return status;
    }
    TJson result = MakeResult("hdlbuild-options", "build", arguments.Build);
    result["options"] = options;
    PrintJson(result, streams);
    return status;
}

}  // namespace

int LoadBuildWithSettings(THdlLanguage language, const TBuildArguments& arguments,
                          const TToolStreams& streams, THdlBuildFile* build) {
    const int status = LoadBuild(arguments.Build, streams, build);
    if (status == kExitFile) return status;
    ReportReadResult(*build, streams);
    if (!build->GetProjectLanguageConfig(language))
        ReportWarning(streams, "the build has no " +
                                   std::string(GetStringFromHdlLanguage(language)) +
                                   " settings: the option text is empty");
    return status;
}

int RunOptions(const TBuildArguments& arguments, const TToolStreams& streams) {
    if (const int usage = CheckUsage(arguments, streams)) return usage;
    if (arguments.OptionsLanguage.empty()) return PrintVerilogOptionText(arguments, streams);
    const THdlLanguage language = FindLanguage(arguments.OptionsLanguage, streams);
    if (language == LANGUAGE_NONE) return kExitUsage;
    THdlBuildFile build;
    const int status = LoadBuildWithSettings(language, arguments, streams, &build);
    if (status == kExitFile) return status;
    TJson result = MakeResult("hdlbuild-options", "build", arguments.Build);
    result["language"] = GetStringFromHdlLanguage(language);
    for (const TStep& step : kSteps) {
        if (!arguments.Step.empty() && arguments.Step != step.Name) continue;
        const std::string text = (build.*step.GetOptions)(language);
        result["options"][step.Name] = text;
        if (arguments.Json) continue;
        PrintWords(streams.Out,
                   arguments.Step.empty() ? std::string(step.Name) + ": " + text : text);
    }
    if (arguments.Json) PrintJson(result, streams);
    return status;
}
