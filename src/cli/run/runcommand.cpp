#include "buildfile/hdlbuildfile.h"
#include "cli/frame/filereports.h"
#include "cli/frame/jsonresults.h"
#include "cli/frame/outputfile.h"
#include "cli/run/commands.h"
#include "cli/run/runoptions.h"
#include "cli/run/runtexts.h"
#include "flows/knownnames.h"
#include "flows/plan/planoptions.h"
#include "flows/process/programs.h"
#include "flows/process/programversion.h"
#include "flows/run/junit.h"
#include "flows/run/ninjarun.h"
#include "flows/run/runfiles.h"
#include "flows/run/runrecipe.h"
#include "flows/run/runscan.h"
#include "flows/toptexts.h"
#include "services/files/filelock.h"
#include "services/files/filestatus.h"
#include <algorithm>
#include <thread>

namespace {

constexpr TRunProgram kNinja = {"ninja", "ninja-build"};

/// A run of the command.
class TBuildRun {
public:
    TBuildRun(const TRunArguments& arguments, const TToolStreams& streams)
        : Arguments(arguments), Streams(streams) {}

    int Run();

private:
    int Load();
    int ChooseTops();
    int List() const;
    int CheckJunit();
    int CheckPlan();
    int FindPrograms();
    int Execute();
    int CallNinja();
    void PrintDryRun();
    int Finish(const TNinjaOutcome& outcome);
    void ReportMissing(const TRunProgram& program) const;
    bool Knows(THdlLanguage language) const;
    /// Whether one of them is an error.
    bool Tell(const std::vector<TDiagnostic>& diagnostics) const;
    std::string FolderOfRun() const;
    std::string JobsText() const;

    const TRunArguments& Arguments;
    const TToolStreams& Streams;
    const TPathForm Paths;
    TRunOptions Options;
    THdlBuildFile Build;
    TBuildPlan Plan;
    TRunScan Scan;  // of the plan
    TRunPlan Steps;
    std::string Ninja;
    int ReadStatus = kExitDone;
};

int TBuildRun::Run() {
    if (const int usage = ReadRunOptions(Arguments, Streams, &Options)) return usage;
    for (const auto step : {&TBuildRun::Load, &TBuildRun::ChooseTops})
        if (const int status = (this->*step)()) return status;
    if (Arguments.List) return List();
    for (const auto step : {&TBuildRun::CheckJunit, &TBuildRun::CheckPlan, &TBuildRun::FindPrograms,
                            &TBuildRun::Execute})
        if (const int status = (this->*step)()) return status;
    return ReadStatus;
}

int TBuildRun::Load() {
    ReadStatus = LoadBuild(Arguments.Build, Streams, &Build);
    if (ReadStatus == kExitFile) return ReadStatus;
    ReportReadResult(Build, Streams);
    if (!Build.HasBuildElement()) return ReadStatus;
    Plan = MakePlan(Build);
    return kExitDone;
}

bool TBuildRun::Knows(THdlLanguage language) const {
    return std::any_of(Options.Tools.begin(), Options.Tools.end(),
                       [language](const TRunTool* tool) { return tool->Language == language; });
}

int TBuildRun::ChooseTops() {
    std::vector<TDiagnostic> left;
    if (Arguments.Tops.empty()) {
        for (const TBuildTop& top : Plan.Tops)
            if (Arguments.List || Knows(top.Language))
                Options.Wishes.Tops.push_back(&top);
            else
                left.push_back({DIAGNOSTIC_TOP_WITHOUT_TOOL,
                                {TitleOf(top), GetDisplayStringFromHdlLanguage(top.Language)}});
        Tell(left);
        return kExitDone;
    }
    for (const std::string& name : Arguments.Tops) {
        const TBuildTop* const top = FindTopOf(Plan.Tops, name);
        if (!top) {
            ReportError(Streams, NoTopOf(Plan.Tops, name));
            return kExitUsage;
        }
        if (!Arguments.List && !Knows(top->Language)) {
            ReportError(Streams, "no simulator given with --with knows " +
                                     std::string(GetDisplayStringFromHdlLanguage(top->Language)) +
                                     ", the language of " + TitleOf(*top));
            return kExitUsage;
        }
        auto& tops = Options.Wishes.Tops;
        if (std::find(tops.begin(), tops.end(), top) == tops.end()) tops.push_back(top);
    }
    return kExitDone;
}

int TBuildRun::List() const {
    if (!Arguments.Json) {
        for (const TBuildTop* const top : Options.Wishes.Tops)
            PrintLine(Streams.Out, TitleOf(*top));
        return ReadStatus;
    }
    TJson simulations = TJson::Array();
    for (const TBuildTop* const top : Options.Wishes.Tops)
        simulations.Add(
            {{"simulation", TitleOf(*top)}, {"language", GetStringFromHdlLanguage(top->Language)}});
    TJson result = MakeResult("hdlbuild-simulations", "build", Arguments.Build);
    result["simulations"] = simulations;
    PrintJson(result, Streams);
    return ReadStatus;
}

bool TBuildRun::Tell(const std::vector<TDiagnostic>& diagnostics) const {
    bool hasError = false;
    for (const TDiagnostic& diagnostic : diagnostics) {
        const bool isError = GetDiagnosticRule(diagnostic.Code).Severity == SEVERITY_ERROR;
        const std::string line =
            GetDiagnosticText(diagnostic) + " [" + GetDiagnosticId(diagnostic.Code) + "]";
        if (isError)
            ReportError(Streams, line);
        else
            ReportWarning(Streams, line);
        hasError = hasError || isError;
    }
    return hasError;
}

int TBuildRun::CheckJunit() {
    const int status = CheckOutput(Arguments.Junit, Arguments.Build, Streams);
    return status == kExitDone ? CheckOutput(Arguments.Junit, Build, Paths, Streams) : status;
}

int TBuildRun::CheckPlan() {
    std::vector<TDiagnostic> found = Plan.Losses;
    for (const TPlanSettings& settings : Plan.Settings)
        for (const std::string& other : settings.OtherStandards)
            if (Knows(settings.Language))
                found.push_back({DIAGNOSTIC_TWO_STANDARDS, {other, settings.Standard}});
    for (const TPlanSource& source : Plan.Sources) {
        if (!Knows(source.Language)) continue;
        const std::string path = PathText(source.Path.c_str(), Paths);
        if (source.Path.find_first_of("\r\n") != std::string::npos)
            found.push_back({DIAGNOSTIC_UNWRITABLE_NAME, {"ninja", path, "it has a line end"}});
        else if (!LookAtFile(source.Path).Exists)
            found.push_back(
                {DIAGNOSTIC_MISSING_FILE, {path, GetStringFromHdlLanguage(source.Language)}});
    }
    if (Tell(found)) return kExitProblems;
    Scan = ScanForRun(Build, Plan);
    found.clear();
    for (std::size_t number = 0; number < Plan.Tops.size(); ++number) {
        const TBuildTop& top = Plan.Tops[number];
        const auto& tops = Options.Wishes.Tops;
        if (std::find(tops.begin(), tops.end(), &top) == tops.end()) continue;
        for (const TRunTool* const tool : Options.Tools)
            for (const THdlLanguage other : Scan.OtherLanguages[number])
                if (tool->Language == top.Language)
                    found.push_back(
                        {DIAGNOSTIC_MIXED_TOP,
                         {TitleOf(top), GetDisplayStringFromHdlLanguage(other), tool->Name}});
    }
    if (Tell(found)) return kExitProblems;
    Options.Wishes.Folder = FolderOfRun();
    return kExitDone;
}

// Of the build, unless the user has another one in mind.
std::string TBuildRun::FolderOfRun() const {
    if (Arguments.Output.empty()) return Plan.Folder + Plan.Name + ".run/";
    return WholePath(Arguments.Output, Paths.Directory + "/") + "/";
}

void TBuildRun::ReportMissing(const TRunProgram& program) const {
    const std::string package = program.Package
                                    ? "install Debian's package " + std::string(program.Package)
                                    : std::string("install it");
    ReportError(Streams, std::string(program.Name) + " was not found: " + package +
                             ", or name its folder with --tool-path");
}

int TBuildRun::FindPrograms() {
    int status = kExitDone;
    const auto find = [this, &status](const TRunProgram& program) {
        const std::string path = FindProgram(program.Name, Arguments.ToolPaths);
        if (path.empty() && !Arguments.DryRun) {
            ReportMissing(program);
            status = kExitFile;
        }
        return WholePath(path, Paths.Directory + "/");
    };
    if (Arguments.DryRun) return kExitDone;
    Ninja = find(kNinja);
    for (const TRunTool* const tool : Options.Tools)
        for (const TRunProgram& program : tool->Programs) {
            const std::string path = find(program);
            Options.Wishes.Programs[program.Name] = path;
            if (!program.BeforeVersion || status != kExitDone) continue;
            const std::optional<int> version = AskMajorVersion(path, program.BeforeVersion);
            if (!version) {
                ReportError(Streams, "interrupted");
                return kExitProblems;
            }
            Options.Wishes.Versions[program.Name] = *version;
        }
    if (Options.Farm)
        for (const TRunProgram& program : Options.Farm->Programs)
            Options.Wishes.Programs[program.Name] = find(program);
    return status;
}

int TBuildRun::Execute() {
    for (const TRunTool* const tool : Options.Tools)
        AddRun(*tool, Plan, Options.Wishes, Scan, &Steps);
    if (Options.Farm) Steps.JobsHere = std::max(std::thread::hardware_concurrency(), 1u);
    if (Tell(Steps.Losses)) return kExitProblems;
    if (Steps.Steps.empty()) ReportWarning(Streams, "the build has nothing to run");
    if (Arguments.DryRun) {
        PrintDryRun();
        return kExitDone;
    }
    return CallNinja();
}

// The processors here do not limit a farm.
std::string TBuildRun::JobsText() const {
    return Options.Farm && Arguments.Jobs.empty() ? "256" : Arguments.Jobs;
}

int TBuildRun::CallNinja() {
    // Two runs in one folder would write into the same libraries.
    const std::string file = Options.Wishes.Folder + "build.ninja";
    if (const std::string reason = MakeFolder(Options.Wishes.Folder); !reason.empty()) {
        ReportError(Streams, reason);
        return kExitFile;
    }
    const TFileLock lock(file.c_str());
    if (!lock.IsHeld()) {
        ReportError(Streams, PathText(file.c_str(), Paths) + ": " + lock.GetReason());
        return kExitFile;
    }
    std::string reason = WriteRunFiles(Steps, Options.Wishes.Folder, GetOwnProgram());
    if (reason.empty() && Arguments.Rerun) reason = ForgetSimulations(Steps);
    if (!reason.empty()) {
        ReportError(Streams, reason);
        return kExitFile;
    }
    const TNinjaWishes wishes{Ninja, Options.Wishes.Folder, JobsText(), Arguments.KeepGoing};
    return Finish(RunNinja(Steps, wishes, [this](std::string_view line) {
        PrintLine(Streams.Err, line);
        Streams.Err.flush();
    }));
}

void TBuildRun::PrintDryRun() {
    if (!Arguments.Json) return PrintSteps(Steps, Streams.Out);
    TJson result = MakeResult("hdlbuild-run", "build", Arguments.Build);
    result["steps"] = StepsAsJson(Steps);
    PrintJson(result, Streams);
}

int TBuildRun::Finish(const TNinjaOutcome& outcome) {
    if (outcome.IsInterrupted)
        ReportError(Streams, "interrupted");
    else if (!outcome.Reason.empty())
        ReportError(Streams, "ninja: " + outcome.Reason);
    if (Arguments.Json) {
        TJson result = MakeResult("hdlbuild-run", "build", Arguments.Build);
        result["passed"] = outcome.HasSucceeded;
        result["simulations"] = SummaryAsJson(Steps, outcome.Simulations, Paths);
        PrintJson(result, Streams);
    } else if (!outcome.Simulations.empty()) {
        PrintSummary(Steps, outcome.Simulations, Paths, Streams.Out);
    }
    if (!Arguments.Junit.empty())
        if (const int failed = SaveOutput(
                Arguments.Junit, WriteJunit(Plan.Name, Steps, outcome.Simulations), Streams))
            return failed;
    return outcome.HasSucceeded ? kExitDone : kExitProblems;
}

}  // namespace

int RunBuild(const TRunArguments& arguments, const TToolStreams& streams) {
    return TBuildRun(arguments, streams).Run();
}
