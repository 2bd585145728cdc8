#include "buildfile/hdlbuildfile.h"
#include "cli/build/commands.h"
#include "cli/frame/filereports.h"
#include "cli/frame/findings.h"
#include "cli/frame/jsonresults.h"
#include "flows/check/buildfindings.h"
#include "flows/scanedit.h"
#include <optional>

int RunCheck(const TBuildArguments& arguments, const TToolStreams& streams) {
    TReportOptions options = arguments.Report;
    if (arguments.Json && !options.Format.empty() && options.Format != "json") {
        ReportError(streams, "--json excludes --format " + options.Format);
        return kExitUsage;
    }
    if (arguments.Json) options.Format = "json";
    if (const int status = CheckReportOptions(options, streams)) return status;
    if (!arguments.ExternalLibraries.empty() && !arguments.Sources) {
        ReportError(streams, "--external needs --sources");
        return kExitUsage;
    }
    THdlBuildFile build;
    const int status = LoadBuild(arguments.Build, streams, &build);
    if (status == kExitFile) {
        if (options.Format == "sarif")
            ReportFailureAsSarif(GetReadErrorText(build.GetReadError(), arguments.Build),
                                 arguments.Build, streams);
        return status;
    }
    TCheckedBuild checked{
        build, arguments.Paths, CheckDocument(build.GetFileName()), {arguments.ExternalLibraries}};
    std::optional<TBuildScan> scan;
    std::optional<TToldScan> told;
    if (arguments.Sources && build.HasBuildElement()) {
        scan.emplace(build, checked.LinkOptions);
        told.emplace(TToldScan{*scan, arguments.Paths, SortVerilog(build).Late});
        checked.Scan = &*told;
    }
    const auto readText = [&] { return checked.Document.ReadText(build.GetFileName()); };
    return ReportFindings(FindAll(checked), arguments.Build, readText,
                          MakeResult("hdlbuild-check", "build", arguments.Build), options, streams);
}
