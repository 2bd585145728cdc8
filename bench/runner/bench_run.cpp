// Measures the library against plain code that does the same, and compares with the goals.
#include "bench/runner/measuring.h"
#include "bench/runner/report.h"
#include <CLI/CLI.hpp>
#include <fstream>
#include <iostream>
#include <thread>

namespace {

constexpr std::uint32_t kCheckedFiles = 10000;

struct TArguments {
    std::string Builds;
    std::vector<std::uint32_t> Files = {1000, 10000, 100000};
    std::vector<std::string> Works;
    std::string Shape = "random";
    int Pairs = 9;
    std::string Json;
    bool Check = false;
};

void AddOptions(CLI::App* app, TArguments* arguments) {
    std::vector<std::string> shapes, works;
    for (const TShapeName& row : kShapeNames) shapes.emplace_back(row.Name);
    for (const TWork& work : GetWorks()) works.emplace_back(work.Name);
    app->add_option("--builds", arguments->Builds, "folder for the builds")->required();
    app->add_option("--files", arguments->Files, "sizes of the builds")
        ->delimiter(',')
        ->check(CLI::Range(1, 1000000));
    app->add_option("--shape", arguments->Shape, "shape of the dependencies")
        ->check(CLI::IsMember(shapes));
    app->add_option("--work", arguments->Works, "these alone")
        ->delimiter(',')
        ->check(CLI::IsMember(works));
    app->add_option("--pairs", arguments->Pairs, "runs of each side")->check(CLI::Range(1, 1000));
    app->add_option("--json", arguments->Json, "file for the figures");
    app->add_flag("--check", arguments->Check, "compare instruction counts with their limits");
}

TShape GetShape(const TArguments& arguments) {
    for (const TShapeName& row : kShapeNames)
        if (row.Name == arguments.Shape) return row.Shape;
    return TShape::RANDOM;
}

bool IsWanted(const TWork& work, std::uint32_t files, const TArguments& arguments) {
    if (files < work.FewestFiles || (work.OnlyFiles && work.OnlyFiles != files)) return false;
    return arguments.Works.empty() || std::find(arguments.Works.begin(), arguments.Works.end(),
                                                work.Name) != arguments.Works.end();
}

bool SaveJson(const TArguments& arguments, const std::vector<TReportRow>& rows) {
    if (arguments.Json.empty()) return true;
    std::ofstream stream(arguments.Json);
    PrintJson(rows,
              {arguments.Shape, HDLBUILDFILE_BENCH_COMPILER, std::thread::hardware_concurrency()},
              stream);
    return stream.flush().good();
}

/// False when a work could not be measured.
bool MeasureSize(const TArguments& arguments, std::uint32_t files, std::vector<TMeasured>* measured,
                 std::vector<TReportRow>* rows) {
    const TShape shape = GetShape(arguments);
    const std::string build = ProvideBuild(arguments.Builds, shape, files);
    bool complete = !build.empty();
    for (const TWork& work : GetWorks()) {
        if (build.empty() || !IsWanted(work, files, arguments)) continue;
        const auto figures = MeasureWork(work, build, work.OnlyFiles ? 1 : arguments.Pairs);
        complete = complete && figures;
        if (!figures) continue;
        measured->push_back({&work, files, *figures});
        rows->push_back(MakeRow(work, files, shape, *figures));
        PrintRow(rows->back(), std::cout);
    }
    return complete;
}

int MeasureAll(const TArguments& arguments) {
    std::vector<TMeasured> measured;
    std::vector<TReportRow> rows;
    bool complete = true;
    PrintHead(std::cout);
    for (const std::uint32_t files : arguments.Files)
        complete = MeasureSize(arguments, files, &measured, &rows) && complete;
    for (const TReportRow& row : MakeGrowthRows(measured)) {
        rows.push_back(row);
        PrintRow(row, std::cout);
    }
    return SaveJson(arguments, rows) && complete ? 0 : 1;
}

/// Ends with the line "N passed, N failed".
int CheckInstructions(const TArguments& arguments) {
    const std::string build = ProvideBuild(arguments.Builds, GetShape(arguments), kCheckedFiles);
    std::vector<TReportRow> rows;
    int passed = 0, failed = 0;
    PrintHead(std::cout);
    for (const TWork& work : GetWorks()) {
        if (!work.InstructionLimit || !IsWanted(work, kCheckedFiles, arguments)) continue;
        const auto figures = CountInstructions(work, build);
        ++(figures && IsWithinLimit(work, *figures) ? passed : failed);
        if (!figures) continue;
        rows.push_back(MakeInstructionRow(work, kCheckedFiles, *figures));
        PrintRow(rows.back(), std::cout);
    }
    std::cout << passed << " passed, " << failed << " failed\n";
    return SaveJson(arguments, rows) && !failed ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app("Measures the library against plain code that does the same.");
    TArguments arguments;
    AddOptions(&app, &arguments);
    CLI11_PARSE(app, argc, argv);
    return arguments.Check ? CheckInstructions(arguments) : MeasureAll(arguments);
}
