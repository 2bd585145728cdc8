#pragma once
#include "flows/formats/exportformats.h"
#include <string>

/// A plan that has a little of everything.
inline TBuildPlan MakeSamplePlan() {
    TBuildPlan plan;
    plan.Name = "soc";
    plan.Folder = "/p/";
    plan.Sources = {{"/p/rtl/adc.v", LANGUAGE_VERILOG, "main", false, {}},
                    {"/p/lib/cells.v", LANGUAGE_VERILOG, "main", true, {}},
                    {"/p/rtl/adc_pkg.vhd", LANGUAGE_VHDL, "sensor", false, {}},
                    {"/q/tb.vhd", LANGUAGE_VHDL, "work", false, {2}}};
    plan.Tops = {{LANGUAGE_VERILOG, "main", "adc", ""}, {LANGUAGE_VHDL, "work", "tb", "sim"}};
    TPlanSettings& verilog = plan.Settings.emplace_back();
    verilog.Language = LANGUAGE_VERILOG;
    verilog.IncludeDirectories = {"/p/inc"};
    verilog.LibraryDirectories = {"/p/lib"};
    verilog.LibraryExtensions = {".v", ".sv"};
    verilog.Defines = {{"TAPS", "16"}, {"FAST", {}}};
    verilog.Options[STEP_RUN] = {"+go"};
    TPlanSettings& vhdl = plan.Settings.emplace_back();
    vhdl.Language = LANGUAGE_VHDL;
    vhdl.Standard = "2008";
    vhdl.Options[STEP_ANALYSE] = {"-frelaxed"};
    return plan;
}

/// A plan with one source.
inline TBuildPlan MakePlanOf(THdlLanguage language, const std::string& path) {
    TBuildPlan plan;
    plan.Folder = "/p/";
    plan.Sources = {{path, language, "main", false, {}}};
    return plan;
}

/// What the format makes of the plan: a line for each loss, then the text.
inline std::string Exported(const char* format, const TBuildPlan& plan,
                            const TBuildTop* top = nullptr, const std::string& folder = "/p/") {
    const TExported exported = FindExportFormat(format)->Write({plan, folder, top});
    std::string text;
    for (const TDiagnostic& loss : exported.Losses) text += GetDiagnosticText(loss) + "\n";
    return text + exported.Text;
}
