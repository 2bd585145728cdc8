#pragma once
#include "flows/run/runtools.h"
#include <string>

/// A plan with a VHDL and a Verilog top, in /b.
inline TBuildPlan SamplePlan() {
    TBuildPlan plan;
    plan.Name = "build";
    plan.Folder = "/b/";
    plan.Sources = {{"/b/my rtl/p.vhd", LANGUAGE_VHDL, "Util", false, {}},
                    {"/b/tb.vhd", LANGUAGE_VHDL, "work", false, {0}},
                    {"/b/t.v", LANGUAGE_VERILOG, "work", false, {}},
                    {"/b/cells.v", LANGUAGE_VERILOG, "work", true, {}}};
    plan.Tops = {{LANGUAGE_VHDL, "work", "tb", "sim"}, {LANGUAGE_VERILOG, "work", "top", ""}};
    plan.Settings.resize(2);
    plan.Settings[0].Language = LANGUAGE_VHDL;
    plan.Settings[0].Options[STEP_ANALYSE] = {"-frelaxed", "--warn-unused", "plain"};
    plan.Settings[0].Options[STEP_RUN] = {"--stop-time=1us"};
    plan.Settings[1].Language = LANGUAGE_VERILOG;
    plan.Settings[1].IncludeDirectories = {"/b/inc", "/b/my inc"};
    plan.Settings[1].LibraryDirectories = {"/b/lib"};
    plan.Settings[1].LibraryExtensions = {".v", ".vlib"};
    plan.Settings[1].Defines = {{"A", ""}, {"B", "2 3"}};
    plan.Settings[1].Delay = DELAY_TYPE_MAXIMUM;
    plan.Settings[1].Options[STEP_ANALYSE] = {"-Wall", "-l", "+acc"};
    plan.Settings[1].Options[STEP_RUN] = {"+verbose", "-q"};
    return plan;
}

/// All that a user may wish, in /r.
inline TRunWishes SampleWishes(const TBuildPlan& plan) {
    TRunWishes wishes;
    wishes.Folder = "/r/";
    wishes.Generics = {{"N", "7"}, {"S", "a b"}};
    wishes.Seed = "42";
    wishes.Tops = {&plan.Tops[0], &plan.Tops[1]};
    wishes.Arguments = {"+x=1"};
    wishes.Launcher = {"nice", "-n", "19"};
    wishes.Programs = {{"ghdl", "/opt/ghdl"}};
    wishes.TimeoutSeconds = 60;
    wishes.FailOn = LEVEL_FAILURE;
    wishes.Waves = true;
    return wishes;
}

/// Of texts that tell what the plan records, and nothing of tops.
inline TRunScan SampleScan(const TBuildPlan& plan) {
    TRunScan scan;
    std::vector<std::size_t> all;
    for (const TPlanSource& source : plan.Sources) {
        scan.Needs.push_back(source.Needs);
        all.push_back(all.size());
    }
    scan.TopNeeds.assign(plan.Tops.size(), all);
    return scan;
}

/// The steps, files and losses of a tool, one a line.
inline std::string TextOfRun(const char* tool, const TBuildPlan& plan, const TRunWishes& wishes,
                             const TRunScan& scan) {
    TRunPlan run;
    AddRun(*FindRunTool(tool), plan, wishes, scan, &run);
    std::string text;
    const auto add = [&text](const std::string& name, const std::string& value) {
        if (!value.empty()) text += "  " + name + " " + value + "\n";
    };
    for (const TRunStep& step : run.Steps) {
        const TStepRecord& record = step.Record;
        text += record.Title + "\n";
        for (const auto& command : record.Commands) {
            std::string words;
            for (const std::string& word : command) words += "|" + word;
            add("call", words.substr(1));
        }
        add("in", record.Folder);
        for (const std::string& folder : record.FreshFolders) add("fresh", folder);
        for (const std::string& file : record.GuardedFiles) add("guarded", file);
        for (const auto& [from, to] : record.Moves) add("move", from + " to " + to);
        if (!record.Farm.empty()) {
            std::string programs;
            for (const std::string& program : record.FarmPrograms) programs += "|" + program;
            add("at", record.Farm + ", " + record.Job + ", " + programs.substr(1));
        }
        for (const std::string& product : record.Products) add("product", product);
        for (const std::string& source : step.Sources) add("source", source);
        if (step.CommonSources)
            for (const std::string& source : *step.CommonSources) add("source", source);
        for (const std::string& program : step.Programs)
            if (program.find('/') != std::string::npos) add("program", program);
        for (const std::size_t need : step.Needs) add("needs", run.Steps[need].Record.Title);
        for (const std::size_t former : step.After) add("after", run.Steps[former].Record.Title);
        if (record.TimeoutSeconds != 0)
            add("limits", std::to_string(record.TimeoutSeconds) + " s, " + record.Tool + ", " +
                              GetLevelName(record.FailOn));
    }
    for (const TRunSimulation& simulation : run.Simulations) add("waves", simulation.Waves);
    for (const auto& [path, file] : run.Files) text += path + ":\n" + file;
    for (const TDiagnostic& loss : run.Losses) text += GetDiagnosticText(loss) + "\n";
    return text;
}

inline std::string TextOfRun(const char* tool, const TBuildPlan& plan, const TRunWishes& wishes) {
    return TextOfRun(tool, plan, wishes, SampleScan(plan));
}
