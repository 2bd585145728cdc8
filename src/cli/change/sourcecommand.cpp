#include "cli/change/commands.h"
#include "cli/change/sourceplace.h"
#include "cli/frame/buildaccess.h"
#include "projectfiles/ihdlsourcefile.h"

int RunSource(const TChangeArguments& arguments, const TToolStreams& streams) {
    const std::string& flag = arguments.LibraryFile;
    if (!flag.empty() && flag != "on" && flag != "off") {
        ReportError(streams, "--as-library-file: '" + flag + "' is neither 'on' nor 'off'");
        return kExitUsage;
    }
    TBuildAccess build(arguments.Build, arguments, streams);
    if (const int status = build.ReadToChange(); status != kExitDone) return status;
    TSourcePlacing placing(arguments, &build, streams);
    if (const int status = placing.Find(); status != kExitDone) return status;
    if (flag.empty() && arguments.Library.empty() && !placing.IsAsked()) {
        ReportError(streams,
                    "nothing to change: give --library, --as-library-file, --first, --before or "
                    "--after");
        return kExitUsage;
    }
    std::vector<TBuildSource> sources;
    if (const int status = build.FindSources(arguments.Paths, &sources); status != kExitDone)
        return status;
    for (const TBuildSource& source : sources) {
        if (!arguments.Library.empty())
            source.Source->SetPrecompiledLibraryGroupName(arguments.Library.c_str());
        if (!flag.empty()) source.Source->SetLibraryFlag(flag == "on");
        placing.Put(source);
    }
    if (const int status = placing.Move(); status != kExitDone) return status;
    return build.Save("source");
}
