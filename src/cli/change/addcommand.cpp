#include "cli/change/commands.h"
#include "cli/change/sourceplace.h"
#include "cli/frame/buildaccess.h"
#include "cli/frame/languagenames.h"
#include "flows/sourcesearch.h"
#include "projectfiles/ihdlsourcefile.h"
#include "services/names/isfilename.h"

namespace {

/// kExitUsage or kExitFile, with one line on Err, when a path names no sources.
int FindAll(const TChangeArguments& arguments, const TToolStreams& streams,
            std::vector<TFoundSource>* sources) {
    TSourceSearch search{arguments.EntersFolders, LANGUAGE_NONE, arguments.Excluded};
    if (!arguments.Language.empty()) {
        search.Language = FindLanguage(arguments.Language, streams);
        if (search.Language == LANGUAGE_NONE) return kExitUsage;
    }
    TFoundSources found = FindSources(arguments.Paths, search);
    if (!found.Complaint.empty()) {
        ReportError(streams, found.Complaint);
        return found.IsFileFault ? kExitFile : kExitUsage;
    }
    *sources = std::move(found.Sources);
    return kExitDone;
}

}  // namespace

int RunAdd(const TChangeArguments& arguments, const TToolStreams& streams) {
    std::vector<TFoundSource> found;
    if (const int status = FindAll(arguments, streams, &found); status != kExitDone) return status;
    TBuildAccess build(arguments.Build, arguments, streams);
    if (const int status = build.ReadToChange(); status != kExitDone) return status;
    TSourcePlacing placing(arguments, &build, streams);
    if (const int status = placing.Find(); status != kExitDone) return status;
    std::vector<std::string> listed;
    for (const TFoundSource& source : found) {
        const ISFileName* const file = ISFileName::NewISFileName(source.Path.c_str());
        const bool isListed = FindListed(build.GetBuild(), file).Source != nullptr;
        IHdlSourceFile* const added =
            isListed ? nullptr : AddSource(build.GetBuild(), file, source.Language);
        if (!added) {
            listed.push_back(build.TextOf(file));
            continue;
        }
        if (!arguments.Library.empty())
            added->SetPrecompiledLibraryGroupName(arguments.Library.c_str());
        if (arguments.IsLibraryFile) added->SetLibraryFlag(true);
        placing.Put({source.Language, added});
    }
    if (const int status = placing.Move(); status != kExitDone) return status;
    build.Note("alreadyListed", listed, " is in the build already");
    return build.Save("add");
}
