#include "buildfile/hdlbuildfile.h"
#include "cli/build/commands.h"
#include "cli/frame/filereports.h"
#include "cli/frame/json.h"
#include "cli/frame/texts.h"
#include "flows/commandfile.h"
#include "projectfiles/ihdlsourcefile.h"
#include "services/files/filereplace.h"
#include "services/names/isfilename.h"

namespace {

constexpr const char* kStandardOutput = "-";

/// Reads the build; kExitFile when it cannot be read.
int LoadVerilogBuild(const TBuildArguments& arguments, const TToolStreams& streams,
                     THdlBuildFile* build) {
    const int status = LoadBuild(arguments.Build, streams, build);
    if (status == kExitFile) return status;
    ReportReadResult(*build, streams);
    if (!build->GetProjectLanguageConfig(LANGUAGE_VERILOG))
        ReportWarning(streams, "the build has no Verilog settings: the option text is empty");
    return status;
}

/// Whether the command file may be written; else an error line on Err.
bool MayReplace(const std::string& output, const THdlBuildFile& build,
                const TBuildArguments& arguments, const TToolStreams& streams) {
    const IHdlSourceFile* const source = FindSourceReplacedBy(output, build);
    if (source)
        ReportError(streams, output + ": the output would replace the source " +
                                 PathText(source->GetFileName(), arguments.Paths));
    return !source;
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

int RunCommandFile(const TBuildArguments& arguments, const TToolStreams& streams) {
    const bool isSaved = !arguments.Output.empty() && arguments.Output != kStandardOutput;
    if (isSaved && IsSameFile(ISFileName::NewISFileName(arguments.Output.c_str()),
                              ISFileName::NewISFileName(arguments.Build.c_str()))) {
        ReportError(streams, arguments.Output + ": the output would replace the build file");
        return kExitUsage;
    }
    THdlBuildFile build;
    const int status = LoadVerilogBuild(arguments, streams, &build);
    if (status == kExitFile) return status;
    if (isSaved && !MayReplace(arguments.Output, build, arguments, streams)) return kExitUsage;
    const TCommandFile file = MakeCommandFile(&build, {arguments.Gof, arguments.Paths.Absolute});
    if (file.RunsTogether())
        ReportWarning(
            streams, "the runtime options do not end with a blank: they run into the first source");
    if (isSaved) {
        const int saved = SaveCommandFile(file.GetText(), arguments, streams, status);
        if (saved == kExitFile || !arguments.Json) return saved;
    } else if (!arguments.Json) {
        streams.Out << file.GetText();
        return status;
    }
    TJson result = MakeResult("hdlbuild-command-file", "build", arguments.Build);
    result["output"] = isSaved ? TJson(arguments.Output) : TJson();
    result["text"] = file.GetText();
    PrintJson(result, streams);
    return status;
}
