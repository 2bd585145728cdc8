#include "bench/runner/measuring.h"
#include "bench/runner/process.h"
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>

namespace {

namespace fs = std::filesystem;

constexpr const char* kInstructions = "instructions";

using TValues = std::map<std::string, std::string>;

std::string PathOf(TProgram program) {
    switch (program) {
        case TProgram::OURS:
            return HDLBUILDFILE_BENCH_OURS;
        case TProgram::ANCHOR:
            return HDLBUILDFILE_BENCH_ANCHOR;
        case TProgram::TOOL:
            return HDLBUILDFILE_BENCH_TOOL;
        case TProgram::NONE:
            break;
    }
    return "";
}

/// Each line of the output is a name and a value.
TValues ParseValues(const std::string& output) {
    TValues values;
    std::istringstream lines(output);
    for (std::string name, value; lines >> name && std::getline(lines >> std::ws, value);)
        values[name] = value;
    return values;
}

/// What the side prints; empty when it fails. `runner` is a program with arguments that runs it.
TValues Run(const TSide& side, const std::string& build, std::vector<std::string> runner = {}) {
    runner.insert(runner.end(), {PathOf(side.Program), side.Work, build});
    const TProcessEnd end = RunProcess(runner, side.Program != TProgram::TOOL);
    TValues values = ParseValues(end.Output);
    values["process"] = std::to_string(end.Seconds);
    if (end.Succeeded && values.contains(side.Value)) return values;
    std::cerr << PathOf(side.Program) << " " << side.Work << " " << build << " failed\n";
    return {};
}

bool AreResultsEqual(const TWork& work, const TValues& ours, const TValues& anchor) {
    const auto result = ours.find("result");
    const auto other = anchor.find("result");
    if (result == ours.end() || other == anchor.end() || result->second == other->second)
        return true;
    std::cerr << work.Name << ": the results differ: " << result->second << " and " << other->second
              << "\n";
    return false;
}

std::optional<TPair> MeasurePair(const TWork& work, const std::string& build, bool isOursFirst) {
    TValues ours, anchor;
    if (isOursFirst) ours = Run(work.Ours, build);
    if (work.Anchor.Program != TProgram::NONE) anchor = Run(work.Anchor, build);
    if (!isOursFirst) ours = Run(work.Ours, build);
    if (work.Anchor.Program == TProgram::NONE) anchor = ours;
    if (ours.empty() || anchor.empty() || !AreResultsEqual(work, ours, anchor)) return {};
    return TPair{std::stod(ours[work.Ours.Value]), std::stod(anchor[work.Anchor.Value])};
}

/// Callgrind's file has a line "totals: <number>".
std::string ReadTotal(const std::string& path) {
    constexpr std::string_view kTotal = "totals: ";
    std::ifstream stream(path);
    for (std::string line; std::getline(stream, line);)
        if (line.starts_with(kTotal)) return line.substr(kTotal.size());
    return "";
}

/// Run() with the number of instructions of the measured section.
TValues RunUnderCallgrind(const TSide& side, const std::string& build) {
    const std::string file = build + ".callgrind";
    TValues values = Run(side, build,
                         {"valgrind", "--tool=callgrind", "--quiet", "--instr-atstart=no",
                          "--callgrind-out-file=" + file});
    const std::string total = ReadTotal(file);
    fs::remove(file);
    if (values.empty() || total.empty()) return {};
    values[kInstructions] = total;
    return values;
}

std::string NameOf(TShape shape) {
    for (const TShapeName& row : kShapeNames)
        if (row.Shape == shape) return row.Name;
    return "";
}

}  // namespace

std::string ProvideBuild(const std::string& folder, TShape shape, std::uint32_t files) {
    const fs::path place = fs::absolute(folder) / NameOf(shape) / std::to_string(files);
    const fs::path build = place / "build.xml";
    if (fs::exists(build) &&
        fs::last_write_time(build) > fs::last_write_time(HDLBUILDFILE_BENCH_MAKE_BUILD))
        return build.string();
    const TProcessEnd end =
        RunProcess({HDLBUILDFILE_BENCH_MAKE_BUILD, "--out", place.string(), "--shape",
                    NameOf(shape), "--files", std::to_string(files), "--seed", "7"},
                   true);
    return end.Succeeded ? build.string() : "";
}

std::optional<TComparison> MeasureWork(const TWork& work, const std::string& build, int pairs) {
    std::vector<TPair> measured;
    for (int i = 0; i < pairs; ++i) {
        const std::optional<TPair> pair = MeasurePair(work, build, i % 2 == 0);
        if (!pair) return {};
        measured.push_back(*pair);
    }
    return Compare(measured);
}

std::optional<TComparison> CountInstructions(const TWork& work, const std::string& build) {
    TValues ours = RunUnderCallgrind(work.Ours, build);
    TValues anchor = RunUnderCallgrind(work.Anchor, build);
    if (ours.empty() || anchor.empty() || !AreResultsEqual(work, ours, anchor)) return {};
    return Compare({{std::stod(ours[kInstructions]), std::stod(anchor[kInstructions])}});
}
