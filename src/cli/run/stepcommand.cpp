#include "cli/frame/sizelimit.h"
#include "cli/frame/texts.h"
#include "cli/run/commands.h"
#include "flows/run/ninjatext.h"
#include "flows/run/runfiles.h"
#include "flows/run/steprun.h"

namespace {

int RunStepWords(const std::vector<std::string>& arguments, const TToolStreams& streams) {
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

}  // namespace

int RunStepCommand(const std::vector<std::string>& arguments, const TToolStreams& streams) {
    if (arguments.size() < 2 || arguments[0] != kStepSizeLimit)
        return RunStepWords(arguments, streams);
    const TSizeLimit limit(arguments[1]);
    return RunStepWords({arguments.begin() + 2, arguments.end()}, streams);
}
