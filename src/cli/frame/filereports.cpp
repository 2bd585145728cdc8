#include "cli/frame/filereports.h"
#include "buildfile/hdlbuildfile.h"
#include "cli/frame/progressline.h"
#include "flows/diagnosticrules.h"
#include "services/names/isfilename.h"

namespace {

std::string ReadErrorText(const TXMLReadError& error) {
    if (error.Missing) return error.File + ": the file does not exist";
    if (error.Line == 0) return error.File + ": " + error.Reason;
    return error.File + ":" + std::to_string(error.Line) + ":" + std::to_string(error.Column) +
           ": " + error.Reason;
}

}  // namespace

std::string GetReadErrorText(TXMLReadError error, const std::string& file) {
    error.File = file;
    return ReadErrorText(error);
}

void ReportReadError(TXMLReadError error, const std::string& file, const TToolStreams& streams) {
    ReportError(streams, GetReadErrorText(std::move(error), file));
}

int LoadBuild(const std::string& file, const TToolStreams& streams, THdlBuildFile* build) {
    const TQuietMessageBox quiet;
    if (streams.Progress) streams.Progress->SetFile(file);
    build->SetBuildFileName(ISFileName::NewISFileName(file.c_str()));
    const THdlBuildFileReadResults result = build->ReadFromFile();
    if (!build->GetReadError().IsError())
        return result == 0 && build->HasBuildElement() ? kExitDone : kExitProblems;
    ReportReadError(build->GetReadError(), file, streams);
    return kExitFile;
}

void ReportCycles(std::size_t count, const TToolStreams& streams) {
    ReportWarning(streams, "the dependencies have " + std::to_string(count) +
                               (count == 1 ? " cycle" : " cycles") +
                               "; 'hdlbuild check' shows them");
}

void ReportNoBuild(const THdlBuildFile& build, const TToolStreams& streams) {
    if (!build.HasBuildElement())
        ReportError(streams, GetDiagnosticText({DIAGNOSTIC_NO_BUILD, {}}));
}

void ReportReadResult(const THdlBuildFile& build, const TToolStreams& streams) {
    ReportNoBuild(build, streams);
    if (build.GetReadResult() != 0)
        ReportError(streams, THdlBuildFile::GetErrorString(build.GetReadResult()));
}
