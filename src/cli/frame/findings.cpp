#include "cli/frame/findings.h"
#include "cli/frame/texts.h"
#include <algorithm>

namespace {

void Print(const TDiagnostic& diagnostic, const TToolStreams& streams) {
    PrintLine(streams.Out, GetDiagnosticText(diagnostic));
    for (const std::string& detail : diagnostic.Details) PrintLine(streams.Out, "  " + detail);
}

}  // namespace

int ReportFindings(const TFindings& findings, const std::string& file, TJson result,
                   const TCommonArguments& arguments, const TToolStreams& streams) {
    const bool isClean = std::all_of(findings.begin(), findings.end(), [](const auto& finding) {
        return finding.second.Diagnostics.empty();
    });
    if (arguments.Json) {
        result["clean"] = isClean;
        for (const auto& [key, found] : findings) result[key] = found.Json;
        PrintJson(result, streams);
    } else {
        for (const auto& [key, found] : findings)
            for (const TDiagnostic& diagnostic : found.Diagnostics) Print(diagnostic, streams);
        if (isClean) PrintLine(streams.Out, file + ": no problems");
    }
    return isClean ? kExitDone : kExitProblems;
}
