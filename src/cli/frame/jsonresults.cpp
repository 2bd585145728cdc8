#include "cli/frame/jsonresults.h"

TJson MakeResult(const std::string& format) {
    return {{"format", format}, {"version", 1}};
}

TJson MakeResult(const std::string& format, const char* key, const std::string& file) {
    return {{"format", format}, {"version", 1}, {key, file}};
}

void PrintJson(const TJson& result, const TToolStreams& streams) {
    streams.Out << result.Dump(2) << "\n";
    if (streams.Outcome) streams.Outcome->HasResult = true;
}

void PrintFailureAsJson(int status, const TToolStreams& streams) {
    const TJsonOutcome* const outcome = streams.Outcome;
    if (!outcome || !outcome->IsWanted || outcome->HasResult) return;
    TJson result = MakeResult("hdlbuild-failure");
    result["status"] = status;
    result["errors"] = outcome->Errors;
    PrintJson(result, streams);
}
