#include "buildfile/hdlbuildfile.h"
#include "cli/build/commands.h"
#include "cli/frame/filereports.h"
#include "cli/frame/json.h"
#include "cli/frame/texts.h"
#include "services/files/filereplace.h"
#include "services/names/isfilename.h"
#include <cstring>
#include <sstream>

namespace {

/// Reads the build and sets the form of the Verilog texts; kExitFile when it cannot be read.
int LoadVerilogBuild(const TBuildArguments& arguments, const TToolStreams& streams,
                     THdlBuildFile* build) {
    const int status = LoadBuild(arguments.Build, streams, build);
    if (status == kExitFile) return status;
    ReportReadResult(*build, streams);
    if (!build->GetProjectLanguageConfig(LANGUAGE_VERILOG))
        ReportWarning(streams, "the build has no Verilog settings: the option text is empty");
    build->SetGOFBuildFileFlag(arguments.Gof);
    return status;
}

/// Whether both are one file, reached through links or not.
bool IsSameFile(const std::string& one, const std::string& other) {
    const ISFileName* file = ISFileName::NewISFileName(one.c_str());
    return std::strcmp(file->CanonicalWithExpandedLinks(),
                       ISFileName::NewISFileName(other.c_str())->CanonicalWithExpandedLinks()) == 0;
}

int SaveCommandFile(const std::string& text, const TBuildArguments& arguments,
                    const TToolStreams& streams, int status) {
    std::string reason;
    if (ReplaceWholeFile(arguments.Output.c_str(), text, &reason)) return status;
    ReportError(streams, arguments.Output + ": " + reason);
    return kExitFile;
}

}  // namespace

int RunOptions(const TBuildArguments& arguments, const TToolStreams& streams) {
    THdlBuildFile build;
    const int status = LoadVerilogBuild(arguments, streams, &build);
    if (status == kExitFile) return status;
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

int RunCommandFile(const TBuildArguments& arguments, const TToolStreams& streams) {
    if (!arguments.Output.empty() && IsSameFile(arguments.Output, arguments.Build)) {
        ReportError(streams, arguments.Output + ": the output would replace the build file");
        return kExitUsage;
    }
    THdlBuildFile build;
    const int status = LoadVerilogBuild(arguments, streams, &build);
    if (status == kExitFile) return status;
    std::ostringstream text;
    build.GenerateVerilogCommandFile(text);
    if (!arguments.Output.empty()) {
        const int saved = SaveCommandFile(text.str(), arguments, streams, status);
        if (saved == kExitFile || !arguments.Json) return saved;
    } else if (!arguments.Json) {
        streams.Out << text.str();
        return status;
    }
    TJson result = MakeResult("hdlbuild-command-file", "build", arguments.Build);
    result["output"] = arguments.Output.empty() ? TJson() : TJson(arguments.Output);
    result["text"] = text.str();
    PrintJson(result, streams);
    return status;
}
