#include "cli/change/commands.h"
#include "cli/frame/buildaccess.h"
#include "cli/frame/filereports.h"
#include "flows/dependencycycles.h"
#include "flows/listedsources.h"
#include "projectfiles/ihdlsourcefile.h"
#include "services/names/isfilename.h"

namespace {

std::size_t CountCycles(const THdlBuildFile& build) {
    std::vector<const IHdlSourceFile*> sources;
    for (const TListedSource& listed : ListSources(build)) sources.push_back(listed.File);
    return FindDependencyCycles(sources).size();
}

/// kExitUsage, with one line on Err, for a source that cannot change so.
int ChangeDependencies(const TChangeArguments& arguments, IHdlSourceFile* source,
                       TBuildAccess* build, const TToolStreams& streams) {
    for (const std::string& path : arguments.NotOn) {
        if (source->RemoveDependency(ISFileName::NewISFileName(path.c_str()))) continue;
        ReportError(streams, arguments.File + " does not depend on " + path);
        return kExitUsage;
    }
    if (arguments.IsClearing) source->FlushDependencies();
    for (const std::string& path : arguments.On) {
        IHdlSourceFile* const dependency = build->FindSource(path).Source;
        if (!dependency) return kExitUsage;
        if (dependency == source) {
            ReportError(streams, path + " cannot depend on itself");
            return kExitUsage;
        }
        source->AddDependency(dependency);
    }
    return kExitDone;
}

}  // namespace

int RunDepend(const TChangeArguments& arguments, const TToolStreams& streams) {
    if (arguments.On.empty() && arguments.NotOn.empty() && !arguments.IsClearing) {
        ReportError(streams, "nothing to change: give --on, --not-on or --clear");
        return kExitUsage;
    }
    TBuildAccess build(arguments.Build, arguments, streams);
    if (const int status = build.ReadToChange(); status != kExitDone) return status;
    IHdlSourceFile* const source = build.FindSource(arguments.File).Source;
    if (!source) return kExitUsage;
    const int found = ChangeDependencies(arguments, source, &build, streams);
    if (found != kExitDone) return found;
    const std::size_t cycles = CountCycles(build.GetBuild());
    const int status = build.Save("depend");
    if (status != kExitDone || cycles == 0) return status;
    ReportCycles(cycles, streams);
    return kExitProblems;
}
