#include "buildfile/hdlbuildfile.h"
#include "cli/export/commands.h"
#include "cli/frame/filereports.h"
#include "cli/frame/formatlist.h"
#include "cli/frame/jsonresults.h"
#include "cli/frame/outputfile.h"
#include "cli/frame/texts.h"
#include "flows/formats/exportformats.h"
#include "flows/knownnames.h"
#include "flows/plan/neededsources.h"
#include "flows/plan/planoptions.h"
#include "flows/toptexts.h"
#include "services/names/isfilename.h"

namespace {

constexpr const char* kList = "list";

/// By severity.
constexpr void (*kReports[])(const TToolStreams& streams, const std::string& message) = {
    ReportNote, ReportWarning, ReportError};

/// A run of the command.
class TExportRun {
public:
    TExportRun(const TExportArguments& arguments, const TToolStreams& streams)
        : Arguments(arguments), Streams(streams) {}

    int Run();

private:
    int List();
    int Write();
    bool FindTop(const TBuildPlan& plan, const TBuildTop** top) const;
    std::string FolderOfPaths(const TBuildPlan& plan) const;
    /// kExitProblems when one of them is an error.
    int Tell(const TBuildPlan& plan, const TExported& exported);
    void Print(const std::string& text);

    const TExportArguments& Arguments;
    const TToolStreams& Streams;
    const TExportFormat* Format = nullptr;
    THdlBuildFile Build;
    TJson Losses = TJson::Array();
};

int TExportRun::Run() {
    if (Arguments.Format == kList) return List();
    std::vector<std::string> known{kList};
    for (const TExportFormat& format : GetExportFormats()) known.emplace_back(format.Name);
    Format = FindExportFormat(Arguments.Format);
    if (!Format) {
        ReportError(Streams, UnknownName("format", Arguments.Format, known));
        return kExitUsage;
    }
    if (Arguments.Build.empty()) {
        ReportError(Streams, "BUILD is required");
        return kExitUsage;
    }
    return Write();
}

int TExportRun::List() {
    std::vector<TListedFormat> formats;
    formats.reserve(GetExportFormats().size());
    for (const TExportFormat& format : GetExportFormats())
        formats.push_back({format.Name, format.Description, format.Holds});
    PrintFormats(formats, "hdlbuild-export-formats", Arguments.Json, Streams);
    return kExitDone;
}

int TExportRun::Write() {
    if (const int usage = CheckOutput(Arguments.Output, Arguments.Build, Streams)) return usage;
    const int status = LoadBuild(Arguments.Build, Streams, &Build);
    if (status == kExitFile) return status;
    ReportReadResult(Build, Streams);
    if (!Build.HasBuildElement()) return status;
    if (const int usage = CheckOutput(Arguments.Output, Build, TPathForm(), Streams)) return usage;
    TBuildPlan plan = MakePlan(Build);
    const TBuildTop* top = nullptr;
    if (!FindTop(plan, &top)) return kExitUsage;
    if (top) top = LeaveOutUnneeded(Build, *top, &plan);
    const TExported exported = Format->Write({plan, FolderOfPaths(plan), top});
    if (const int told = Tell(plan, exported); told != kExitDone) return told;
    if (IsFileOutput(Arguments.Output))
        if (const int failed = SaveOutput(Arguments.Output, exported.Text, Streams)) return failed;
    Print(exported.Text);
    return status;
}

/// False, with an error line on Err, for one that the build does not have, or several times.
bool TExportRun::FindTop(const TBuildPlan& plan, const TBuildTop** top) const {
    if (Arguments.Top.empty()) return true;
    *top = FindTopOf(plan.Tops, Arguments.Top);
    if (!*top) ReportError(Streams, NoTopOf(plan.Tops, Arguments.Top));
    return *top != nullptr;
}

// Standard output is in no folder: what is printed is for the build's own.
std::string TExportRun::FolderOfPaths(const TBuildPlan& plan) const {
    if (Arguments.Absolute) return {};
    if (!IsFileOutput(Arguments.Output)) return plan.Folder;
    const ISFileName* const output = ISFileName::NewISFileName(Arguments.Output.c_str());
    return WholePath("", output->GetParts(PART_DRIVE | PART_DIRECTORY)) + "/";
}

int TExportRun::Tell(const TBuildPlan& plan, const TExported& exported) {
    int status = kExitDone;
    for (const auto* const losses : {&plan.Losses, &exported.Losses})
        for (const TDiagnostic& loss : *losses) {
            const TDiagnosticSeverity severity = GetDiagnosticRule(loss.Code).Severity;
            if (severity == SEVERITY_ERROR) status = kExitProblems;
            kReports[severity](Streams,
                               GetDiagnosticText(loss) + " [" + GetDiagnosticId(loss.Code) + "]");
            Losses.Add({{"code", GetDiagnosticId(loss.Code)}, {"text", GetDiagnosticText(loss)}});
        }
    return status;
}

void TExportRun::Print(const std::string& text) {
    if (!Arguments.Json) {
        if (!IsFileOutput(Arguments.Output)) PrintFile(text, Streams.Out);
        return;
    }
    TJson result = MakeResult("hdlbuild-export", "build", Arguments.Build);
    result["to"] = Format->Name;
    result["output"] = IsFileOutput(Arguments.Output) ? TJson(Arguments.Output) : TJson();
    result["losses"] = Losses;
    result["text"] = text;
    PrintJson(result, Streams);
}

}  // namespace

int RunExport(const TExportArguments& arguments, const TToolStreams& streams) {
    return TExportRun(arguments, streams).Run();
}
