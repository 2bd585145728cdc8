#include "cli/frame/jsonresults.h"
#include <string_view>

namespace {

/// With the control characters that JSON lets stand in texts as numbers: a terminal takes them for
/// commands. They are DEL and, in two bytes of UTF-8, U+0080 to U+009F.
std::string WithoutControls(std::string json) {
    if (json.find_first_of("\x7F\xC2") == std::string::npos) return json;  // nearly always
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text;
    text.reserve(json.size());
    for (std::size_t at = 0; at < json.size(); ++at) {
        const bool isPair = json[at] == '\xC2' && at + 1 < json.size();
        const auto code = static_cast<unsigned char>(json[at + (isPair ? 1 : 0)]);
        if (isPair ? code >= 0xA0 : code != 0x7F) {
            text += json[at];
            continue;
        }
        text.append("\\u00").append({kDigits[code >> 4U], kDigits[code & 15U]});
        if (isPair) ++at;
    }
    return text;
}

}  // namespace

TJson MakeResult(const std::string& format) {
    return {{"format", format}, {"version", 1}};
}

TJson MakeResult(const std::string& format, const char* key, const std::string& file) {
    return {{"format", format}, {"version", 1}, {key, file}};
}

void PrintJson(const TJson& result, const TToolStreams& streams) {
    streams.Out << WithoutControls(result.Dump(2)) << "\n";
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
