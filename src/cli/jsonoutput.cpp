#include "cli/jsonoutput.h"

TJson MakeResult(const char* format, const TToolArguments& arguments) {
    return MakeResult(format, "build", arguments.Build);
}

TJson MakeResult(const char* format, const char* key, const std::string& file) {
    return {{"format", format}, {"version", 1}, {key, file}};
}

void PrintJson(const TJson& result, const TToolStreams& streams) {
    streams.Out << result.dump(2, ' ', false, TJson::error_handler_t::replace) << "\n";
}
