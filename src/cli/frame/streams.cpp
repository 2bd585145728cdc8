#include "cli/frame/streams.h"
#include "cli/frame/texts.h"

namespace {

void ReportLabelled(const TToolStreams& streams, const char* label, const char* color,
                    const std::string& message) {
    streams.Err << "hdlbuild: ";
    if (streams.ColorErrors)
        streams.Err << color << label << "\033[0m";
    else
        streams.Err << label;
    streams.Err << ": ";
    PrintLine(streams.Err, message);
}

}  // namespace

void ReportError(const TToolStreams& streams, const std::string& message) {
    ReportLabelled(streams, "error", "\033[1;31m", message);
    if (streams.Outcome) streams.Outcome->Errors.push_back(message);
}

void ReportWarning(const TToolStreams& streams, const std::string& message) {
    ReportLabelled(streams, "warning", "\033[1;33m", message);
}

void ReportNote(const TToolStreams& streams, const std::string& message) {
    ReportLabelled(streams, "note", "\033[1;36m", message);
}
