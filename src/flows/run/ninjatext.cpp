#include "flows/run/ninjatext.h"
#include "flows/process/programs.h"
#include "flows/run/runfiles.h"
#include "services/files/filelimit.h"
#include <set>

namespace {

std::string Escaped(std::string_view text, std::string_view special) {
    std::string escaped;
    for (const char c : text) {
        if (special.find(c) != std::string_view::npos) escaped += '$';
        escaped += c;
    }
    return escaped;
}

std::string DigestFileOf(const std::string& source) {
    const std::string name = source.substr(source.rfind('/') + 1);
    std::string plain;
    for (const char c : name)
        plain += static_cast<unsigned char>(c) > ' ' &&
                         std::string_view("\"*:<>?|\\$&;'`").find(c) == std::string_view::npos
                     ? c
                     : '_';
    return "digests/" + plain + "-" + DigestOf(source);
}

/// Writes the text.
class TNinjaWriter {
public:
    TNinjaWriter(const TRunPlan& run, const std::string& program) : Run(run), Program(program) {}

    std::string Write() {
        AddRules();
        AddDigests();
        for (const TRunStep& step : Run.Steps) AddStep(step);
        AddLine("build all: phony" + Stamps);
        AddLine("default all");
        return std::move(Text);
    }

private:
    void AddLine(const std::string& line) { Text.append(line).append("\n"); }

    void AddRules() {
        std::vector<std::string> words = {Program, "step"};
        if (const std::uint64_t limit = GetFileSizeLimit(); limit != kUsualFileSizeLimit)
            words.insert(words.end(), {kStepSizeLimit, std::to_string(limit)});
        const std::string call = NinjaText(CommandLineOf(words));
        const bool hasFarm = Run.JobsHere > 0;
        AddLine("ninja_required_version = 1.7");
        if (hasFarm) {
            AddLine("pool here");
            AddLine("  depth = " + std::to_string(Run.JobsHere));
        }
        AddLine("rule digest");
        AddLine("  command = " + call + " digest $in $out");
        AddLine("  description = read $in");
        AddLine("  restat = 1");
        if (hasFarm) AddLine("  pool = here");
        AddLine("rule step");
        AddLine("  command = " + call + " run $record");
        AddLine("  description = $title");
        if (hasFarm) AddLine("  pool = here");
    }

    void AddDigests() {
        std::set<std::string> sources;
        for (const TRunStep& step : Run.Steps)
            sources.insert(step.Sources.begin(), step.Sources.end());
        std::string all;
        for (const std::string& source : sources) {
            const std::string digest = NinjaPath(DigestFileOf(source));
            AddLine("build " + digest + ": digest " + NinjaPath(source));
            all += " " + digest;
        }
        AddLine("build digests: phony" + all);
    }

    static std::string StampOf(const TRunStep& step) { return NinjaPath("done/" + step.Name); }

    void AddStep(const TRunStep& step) {
        std::string line = "build " + StampOf(step) + ": step | " + NinjaPath(RecordFileOf(step));
        for (const std::string& source : step.Sources)
            line += " " + NinjaPath(DigestFileOf(source));
        for (const std::size_t need : step.Needs) line += " " + StampOf(Run.Steps[need]);
        if (!step.After.empty()) line += " ||";
        for (const std::size_t former : step.After) line += " " + StampOf(Run.Steps[former]);
        AddLine(line);
        AddLine("  record = " + NinjaText(RecordFileOf(step)));
        AddLine("  title = " + NinjaText(step.Record.Title));
        // What runs elsewhere takes no place here.
        if (!step.Record.Farm.empty()) AddLine("  pool =");
        Stamps += " " + StampOf(step);
    }

    const TRunPlan& Run;
    const std::string& Program;
    std::string Text;
    std::string Stamps;
};

}  // namespace

std::string NinjaPath(std::string_view path) {
    return Escaped(path, "$ :|");
}

std::string NinjaText(std::string_view text) {
    return Escaped(text, "$");
}

std::string RecordFileOf(const TRunStep& step) {
    return "steps/" + step.Name;
}

std::string WriteNinja(const TRunPlan& run, const std::string& program) {
    return TNinjaWriter(run, program).Write();
}
