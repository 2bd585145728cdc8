#include "cli/frame/outputfile.h"
#include "buildfile/hdlbuildfile.h"
#include "flows/commandfile.h"
#include "projectfiles/ihdlsourcefile.h"
#include "services/files/filereplace.h"
#include "services/names/isfilename.h"

bool IsFileOutput(const std::string& output) {
    return !output.empty() && output != "-";
}

int CheckOutput(const std::string& output, const std::string& buildFile,
                const TToolStreams& streams) {
    if (!IsFileOutput(output) || !IsSameFile(ISFileName::NewISFileName(output.c_str()),
                                             ISFileName::NewISFileName(buildFile.c_str())))
        return kExitDone;
    ReportError(streams, output + ": the output would replace the build file");
    return kExitUsage;
}

int CheckOutput(const std::string& output, const THdlBuildFile& build, const TPathForm& paths,
                const TToolStreams& streams) {
    if (!IsFileOutput(output)) return kExitDone;
    const IHdlSourceFile* const source = FindSourceReplacedBy(output, build);
    if (!source) return kExitDone;
    ReportError(streams, output + ": the output would replace the source " +
                             PathText(source->GetFileName(), paths));
    return kExitUsage;
}

int SaveOutput(const std::string& output, std::string_view text, const TToolStreams& streams) {
    std::string reason;
    if (ReplaceWholeFile(output.c_str(), text, &reason)) return kExitDone;
    ReportError(streams, output + ": " + reason);
    return kExitFile;
}
