#include "cli/frame/scanfindings.h"
#include "cli/frame/filereports.h"
#include "cli/frame/texts.h"
#include "flows/check/scandiagnostics.h"
#include "flows/dependencycycles.h"
#include "flows/diagnosticrules.h"
#include "flows/toptexts.h"
#include "projectfiles/ihdlsourcefile.h"
#include "services/hdl/hdllanguagetable.h"
#include "services/names/isfilename.h"
#include <algorithm>

namespace {

void PrintScanned(const TDiagnostic& diagnostic, const TToolStreams& streams) {
    const std::string text =
        GetSourcePlaceText(diagnostic.Source) + ": " + GetDiagnosticText(diagnostic);
    switch (GetDiagnosticRule(diagnostic.Code).Severity) {
        case SEVERITY_ERROR:
            ReportError(streams, text);
            break;
        case SEVERITY_WARNING:
            ReportWarning(streams, text);
            break;
        case SEVERITY_NOTE:
            PrintLine(streams.Out, text);
    }
}

}  // namespace

std::string NameOfTop(const TBuildTop& top) {
    return std::string(GetStringFromHdlLanguage(top.Language)) + " top-level component " +
           TextOf(top);
}

void AddFindings(const TToldScan& told, TJson* result) {
    for (const TScanDiagnosticKind& kind : GetScanDiagnosticKinds()) {
        TJson& list = (*result)[kind.Key] = TJson::Array();
        for (TScanDiagnostic& one : kind.Find(told)) list.Add(std::move(one.Json));
    }
}

void PrintFindings(const TToldScan& told, const TScanRepairs& repairs,
                   const TToolStreams& streams) {
    for (const TDiagnostic& diagnostic : DiagnoseScan(told, repairs))
        PrintScanned(diagnostic, streams);
}

int ReportUnread(const TToldScan& told, const TToolStreams& streams) {
    int status = kExitDone;
    const std::vector<std::string>& reasons = told.Scan.GetReasons();
    for (std::size_t i = 0; i < reasons.size(); ++i) {
        if (reasons[i].empty()) continue;
        ReportError(streams, told.PathOf(i) + ": " +
                                 GetDiagnosticText({DIAGNOSTIC_UNREAD_SOURCE, {reasons[i]}}));
        status = kExitProblems;
    }
    return status;
}

int StatusOfScan(int status, const TBuildScan& scan, const TToolStreams& streams) {
    const std::vector<std::string>& reasons = scan.GetReasons();
    const bool isAllRead = std::all_of(reasons.begin(), reasons.end(),
                                       [](const std::string& reason) { return reason.empty(); });
    std::vector<const IHdlSourceFile*> sources;
    for (const TScannedSource& source : scan.GetSources()) sources.push_back(source.Source);
    const std::size_t cycles = FindDependencyCycles(sources).size();
    if (cycles > 0) ReportCycles(cycles, streams);
    return status == kExitDone && (!isAllRead || cycles > 0) ? kExitProblems : status;
}
