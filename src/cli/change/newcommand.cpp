#include "cli/change/commands.h"
#include "cli/frame/buildaccess.h"
#include "cli/frame/languagenames.h"

int RunNew(const TChangeArguments& arguments, const TToolStreams& streams) {
    const THdlLanguage language = FindLanguage(arguments.TopLanguage, streams);
    if (language == LANGUAGE_NONE) return kExitUsage;
    TBuildAccess build(arguments.Build, arguments, streams);
    if (const int status = build.Make(language); status != kExitDone) return status;
    build.GetBuild().SetDestinationLibrary(arguments.Library.c_str());
    return build.Save("new");
}
