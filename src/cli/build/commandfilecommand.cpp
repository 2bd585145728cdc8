#include "buildfile/hdlbuildfile.h"
#include "cli/build/commands.h"
#include "cli/frame/filereports.h"
#include "cli/frame/jsonresults.h"
#include "cli/frame/outputfile.h"
#include "flows/commandfile.h"

int RunCommandFile(const TBuildArguments& arguments, const TToolStreams& streams) {
    if (const int usage = CheckOutput(arguments.Output, arguments.Build, streams)) return usage;
    THdlBuildFile build;
    const int status = LoadBuildWithSettings(LANGUAGE_VERILOG, arguments, streams, &build);
    if (status == kExitFile) return status;
    if (const int usage = CheckOutput(arguments.Output, build, arguments.Paths, streams))
        return usage;
    const TCommandFile file = MakeCommandFile(&build, {arguments.Gof, arguments.Paths.Absolute});
    if (file.RunsTogether())
        ReportWarning(
            streams, "the runtime options do not end with a blank: they run into the first source");
    const bool isSaved = IsFileOutput(arguments.Output);
    if (isSaved) {
        if (const int failed = SaveOutput(arguments.Output, file.GetText(), streams)) return failed;
        if (!arguments.Json) return status;
    } else if (!arguments.Json) {
        PrintFile(file.GetText(), streams.Out);
        return status;
    }
    TJson result = MakeResult("hdlbuild-command-file", "build", arguments.Build);
    result["output"] = isSaved ? TJson(arguments.Output) : TJson();
    result["text"] = file.GetText();
    PrintJson(result, streams);
    return status;
}
