#include "cli/frame/changereport.h"
#include "cli/frame/filereports.h"
#include "cli/frame/jsonresults.h"
#include "cli/frame/progressline.h"
#include "cli/frame/scanfindings.h"
#include "cli/frame/texts.h"
#include "cli/scan/commands.h"
#include "flows/buildedit.h"
#include "flows/scanedit.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/hdl/hdllanguagetable.h"
#include "services/names/isfilename.h"
#include <unordered_map>

namespace {

/// A run of the command.
class TScanRun {
public:
    TScanRun(const TScanArguments& arguments, const TToolStreams& streams)
        : Arguments(arguments),
          Streams(streams),
          Edit(ISFileName::NewISFileName(arguments.Paths.front().c_str())) {}

    int Run();

private:
    int Read();
    int Check(TToldScan told);
    int Change(TToldScan told);
    TScanChanges WantedChanges(const TBuildScan& scan);
    static void AddMoves(const TToldScan& told, const std::vector<IHdlSourceFile*>& order,
                         TState* state);
    TState StateOf(const TToldScan& told, const TScanChanges& changes);

    const TScanArguments& Arguments;
    const TToolStreams& Streams;
    TBuildEdit Edit;
};

int TScanRun::Run() {
    const TQuietMessageBox quiet;
    if (const int status = Read(); status != kExitDone) return status;
    const TBuildScan scan(*Edit.GetBuild(), {Arguments.ExternalLibraries});
    const int status = Arguments.Check ? Check({scan, {}}) : Change({scan, {}});
    return StatusOfScan(status, scan, Streams);
}

int TScanRun::Read() {
    if (Streams.Progress) Streams.Progress->SetFile(Arguments.Paths.front());
    TXMLReadError error;
    const bool isToSave = !Arguments.DryRun && !Arguments.Check;
    if (!(isToSave ? Edit.ReadToChange(&error) : Edit.Read(&error))) {
        ReportReadError(error, Arguments.Paths.front(), Streams);
        return kExitFile;
    }
    THdlBuildFile& build = *Edit.GetBuild();
    ReportNoBuild(build, Streams);
    const THdlBuildFileReadResults result = build.GetReadResult();
    // Those that are missing are told one by one.
    const bool isRead = result == READ_NO_ERROR || result == READ_FILES_MISSING;
    if (!isRead) ReportError(Streams, THdlBuildFile::GetErrorString(result));
    return isRead && build.HasBuildElement() ? kExitDone : kExitProblems;
}

int TScanRun::Check(TToldScan told) {
    ApplyScan(told.Scan, WantedChanges(told.Scan), Edit.GetBuild());
    told.Late = SortVerilog(*Edit.GetBuild()).Late;
    bool isUpToDate = !Arguments.Sort || told.Late.empty();
    for (const TDependencyDifference& difference : told.Scan.GetDifferences())
        if (!difference.Lacking.empty() || (Arguments.Exact && !difference.Unexplained.empty()))
            isUpToDate = false;
    if (Arguments.Json) {
        TJson result = MakeResult("hdlbuild-scan", "build", Arguments.Paths.front());
        result["upToDate"] = isUpToDate;
        AddFindings(told, &result);
        PrintJson(result, Streams);
    } else {
        PrintFindings(told, {}, Streams);
        PrintLine(Streams.Out, Arguments.Paths.front() + ": the dependencies" +
                                   (Arguments.Sort ? " and the order are " : " are ") +
                                   (isUpToDate ? "up to date" : "not up to date"));
    }
    return isUpToDate ? kExitDone : kExitProblems;
}

int TScanRun::Change(TToldScan told) {
    const TScanChanges changes = WantedChanges(told.Scan);
    TState before = StateOf(told, changes);
    ApplyScan(told.Scan, changes, Edit.GetBuild());
    const TIHdlSourceFileList& group = *Edit.GetBuild()->GetSourceFileGroup(LANGUAGE_VERILOG);
    const std::vector<IHdlSourceFile*> listed(group.begin(), group.end());
    const TCompileSort sort = SortVerilog(*Edit.GetBuild());
    told.Late = sort.Late;
    if (Arguments.Sort) ApplySort(sort, Edit.GetBuild());
    TJson result = MakeResult("hdlbuild-scan", "build", Arguments.Paths.front());
    if (Arguments.Json)
        AddFindings(told, &result);
    else
        PrintFindings(told, {true, Arguments.Exact, Arguments.Sort}, Streams);
    TState after = StateOf(told, changes);
    if (Arguments.Sort) AddMoves(told, listed, &before);
    if (Arguments.Sort) AddMoves(told, sort.Order, &after);
    return SaveEditedFile(
        {std::move(result), Arguments.Paths.front(), std::move(before), std::move(after)},
        Edit.FindEdits(), Edit.GetFile(), Arguments, Streams);
}

/// What the sources that move stand behind, in that order.
void TScanRun::AddMoves(const TToldScan& told, const std::vector<IHdlSourceFile*>& order,
                        TState* state) {
    std::unordered_map<const IHdlSourceFile*, const IHdlSourceFile*> inFront;
    for (std::size_t i = 1; i < order.size(); ++i) inFront[order[i]] = order[i - 1];
    const auto textOf = [&](const IHdlSourceFile* source) {
        return PathText(source->GetFileName(), told.Paths);
    };
    for (const TLateSource& late : told.Late) {
        const IHdlSourceFile* const other = inFront[late.Source];
        state->emplace_back("Verilog source " + textOf(late.Source) + ", behind",
                            other ? TJson(textOf(other)) : TJson());
    }
}

TScanChanges TScanRun::WantedChanges(const TBuildScan& scan) {
    return FindScanChanges(scan, *Edit.GetBuild(), {Arguments.Exact, Arguments.SetTops});
}

/// What the command changes, as it is told; the values of sources that do not change are the same.
TState TScanRun::StateOf(const TToldScan& told, const TScanChanges& changes) {
    TState state;
    for (const TDependencyDifference& difference : changes.Differences) {
        const TScannedSource& source = told.Scan.GetSources()[difference.Source];
        TJson dependencies = TJson::Array();
        for (const IHdlSourceFile* const dependency : *source.Source->GetDependencyList())
            dependencies.Add(PathText(dependency->GetFileName(), told.Paths));
        state.emplace_back(std::string(GetStringFromHdlLanguage(source.Group)) + " source " +
                               told.PathOf(difference.Source) + ", dependencies",
                           std::move(dependencies));
    }
    for (const TBuildTop& top : changes.Tops)
        state.emplace_back(NameOfTop(top), HasTop(*Edit.GetBuild(), top));
    return state;
}

}  // namespace

int RunScan(const TScanArguments& arguments, const TToolStreams& streams) {
    if (!arguments.Output.empty()) return RunScanNew(arguments, streams);
    if (arguments.Paths.size() > 1 || !arguments.Libraries.empty() || !arguments.Excluded.empty()) {
        ReportError(streams, arguments.Paths.size() > 1
                                 ? "several sources make a build: give it with --output"
                                 : "--library and --exclude need --output");
        return kExitUsage;
    }
    return TScanRun(arguments, streams).Run();
}
