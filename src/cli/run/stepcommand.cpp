#include "cli/frame/sizelimit.h"
#include "cli/frame/texts.h"
#include "cli/run/commands.h"
#include "flows/run/steprun.h"
#include <cstdlib>

namespace {

/// Prints texts with the mark of a step in front of each line.
class TStepLines {
public:
    explicit TStepLines(std::ostream& out) : Out(out) {}
    ~TStepLines() { Out.flush(); }
    TStepLines(const TStepLines&) = delete;
    TStepLines& operator=(const TStepLines&) = delete;

    void Print(std::string_view text) {
        while (!text.empty()) {
            const std::size_t size = std::min(text.find('\n'), text.size() - 1) + 1;
            if (IsAtBegin) PrintFile({&kStepLine, 1}, Out);
            PrintFile(text.substr(0, size), Out);
            IsAtBegin = text[size - 1] == '\n';
            text.remove_prefix(size);
        }
    }

private:
    std::ostream& Out;
    bool IsAtBegin = true;
};

}  // namespace

int RunStepCommand(const std::vector<std::string>& arguments, const TToolStreams& streams) {
    if (arguments.size() != 2 || arguments[0] != "run") {
        ReportError(streams, "'step' is called by 'run' alone");
        return kExitUsage;
    }
    const char* const size = std::getenv(kStepSizeLimit);
    const TSizeLimit limit(size ? size : "");
    TStepLines lines(streams.Out);
    return RunStep(arguments[1], [&lines](std::string_view text) { lines.Print(text); });
}
