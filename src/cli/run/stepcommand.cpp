#include "cli/frame/texts.h"
#include "cli/run/commands.h"
#include "flows/run/runfiles.h"
#include "flows/run/steprun.h"

int RunStepCommand(const std::vector<std::string>& arguments, const TToolStreams& streams) {
    if (arguments.size() == 2 && arguments[0] == "run") {
        const TStepEnd end = RunStep(
            arguments[1], [&streams](std::string_view text) { PrintFile(text, streams.Out); });
        streams.Out.flush();
        return end;
    }
    if (arguments.size() == 3 && arguments[0] == "digest") {
        const std::string reason = WriteDigest(arguments[1], arguments[2]);
        if (!reason.empty()) ReportError(streams, reason);
        return reason.empty() ? kExitDone : kExitFile;
    }
    ReportError(streams, "'step' is called by 'run' alone");
    return kExitUsage;
}
