#include "flows/run/ninjatext.h"
#include "flows/process/programs.h"

namespace {

// Ninja has no way to write a '|' into a path, but takes it out of a variable.
constexpr std::string_view kBar = "${bar}";

std::string Escaped(std::string_view text, std::string_view special) {
    std::string escaped;
    for (const char c : text) {
        if (special.find(c) != std::string_view::npos) escaped += '$';
        escaped += c;
    }
    return escaped;
}

/// Writes the text.
class TNinjaWriter {
public:
    TNinjaWriter(const TRunPlan& run, const std::string& program) : Run(run), Program(program) {}

    std::string Write() {
        AddRules();
        for (const TRunStep& step : Run.Steps) AddStep(step);
        AddLine("build all: phony" + Stamps);
        AddLine("default all");
        DefineNinjaBar(&Text);
        return std::move(Text);
    }

private:
    void AddLine(const std::string& line) { Text.append(line).append("\n"); }

    void AddRules() {
        const bool hasFarm = Run.JobsHere > 0;
        Text = kNinjaHead;
        AddLine("ninja_required_version = 1.7");
        if (hasFarm) {
            AddLine("pool here");
            AddLine("  depth = " + std::to_string(Run.JobsHere));
        }
        AddLine("rule step");
        AddLine("  command = " + NinjaText(CommandLineOf({Program, "step", "run"})) + " $record");
        AddLine("  description = $title");
        if (hasFarm) AddLine("  pool = here");
    }

    static std::string StampOf(const TRunStep& step) { return NinjaPath("done/" + step.Name); }

    void AddStep(const TRunStep& step) {
        std::string line = "build " + StampOf(step) + ": step | " + NinjaPath(RecordFileOf(step));
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
    std::string escaped = Escaped(path, "$ :");
    for (std::size_t at = 0; (at = escaped.find('|', at)) != std::string::npos; at += kBar.size())
        escaped.replace(at, 1, kBar);
    return escaped;
}

std::string NinjaText(std::string_view text) {
    return Escaped(text, "$");
}

void DefineNinjaBar(std::string* file) {
    if (file->find(kBar) != std::string::npos) file->insert(file->find('\n') + 1, "bar = |\n");
}

std::string RecordFileOf(const TRunStep& step) {
    return "steps/" + step.Name;
}

std::string WriteNinja(const TRunPlan& run, const std::string& program) {
    return TNinjaWriter(run, program).Write();
}
