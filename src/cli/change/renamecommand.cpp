#include "cli/change/commands.h"
#include "cli/frame/buildaccess.h"
#include "services/names/isfilename.h"

int RunRename(const TChangeArguments& arguments, const TToolStreams& streams) {
    TBuildAccess build(arguments.Build, arguments, streams);
    if (const int status = build.ReadToChange(); status != kExitDone) return status;
    const TBuildSource source = build.FindSource(arguments.File);
    if (!source.Source) return kExitUsage;
    const ISFileName* const file = ISFileName::NewISFileName(arguments.NewFile.c_str());
    // Also in another letter case: names are compared without it.
    if (FindListed(build.GetBuild(), file).Source) {
        ReportError(streams, arguments.NewFile + " is a source of the build already");
        return kExitUsage;
    }
    RenameSource(build.GetBuild(), *source.Source, file);
    return build.Save("rename");
}
