#include "cli/jsonoutput.h"

TJson MakeResult(const char* format, const TToolArguments& arguments) {
    return {{"format", format}, {"version", 1}, {"build", arguments.Build}};
}

void PrintJson(const TJson& result, const TToolStreams& streams) {
    streams.Out << result.dump(2, ' ', false, TJson::error_handler_t::replace) << "\n";
}
