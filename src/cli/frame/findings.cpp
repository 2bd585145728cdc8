#include "cli/frame/findings.h"
#include "cli/frame/texts.h"
#include <algorithm>

int ReportFindings(const TFindings& findings, const std::string& file, TJson result,
                   const TCommonArguments& arguments, const TToolStreams& streams) {
    const bool isClean = std::all_of(findings.begin(), findings.end(), [](const auto& finding) {
        return finding.second.Lines.empty();
    });
    if (arguments.Json) {
        result["clean"] = isClean;
        for (const auto& [key, found] : findings) result[key] = found.Json;
        PrintJson(result, streams);
    } else {
        for (const auto& [key, found] : findings)
            for (const std::string& line : found.Lines) PrintLine(streams.Out, line);
        if (isClean) PrintLine(streams.Out, file + ": no problems");
    }
    return isClean ? kExitDone : kExitProblems;
}
