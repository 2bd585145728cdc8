#include "cli/change/commands.h"
#include "cli/frame/buildaccess.h"
#include "flows/listedsources.h"

int RunRemove(const TChangeArguments& arguments, const TToolStreams& streams) {
    if (arguments.Paths.empty() != arguments.IsMissing) {
        ReportError(streams, "give the sources or --missing");
        return kExitUsage;
    }
    TBuildAccess build(arguments.Build, arguments, streams);
    if (const int status = build.ReadToChange(); status != kExitDone) return status;
    std::vector<TBuildSource> sources;
    if (const int status = build.FindSources(arguments.Paths, &sources); status != kExitDone)
        return status;
    std::vector<IHdlSourceFile*> gone;
    gone.reserve(sources.size());
    for (const TBuildSource& source : sources) gone.push_back(source.Source);
    if (arguments.IsMissing)
        // They are the build's, which may be changed.
        for (const TListedSource& missing : ListMissingSources(build.GetBuild()))
            gone.push_back(const_cast<IHdlSourceFile*>(missing.File));
    RemoveSources(build.GetBuild(), gone);
    return build.Save("remove");
}
