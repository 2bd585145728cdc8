#include "flows/run/runtools.h"
#include "flows/run/recipes.h"
#include "flows/run/runrecipe.h"

const std::vector<TRunTool>& GetRunTools() {
    static const std::vector<TRunTool> tools = {
        {"ghdl", LANGUAGE_VHDL, {{"ghdl", "ghdl"}}, AddGhdlSteps},
        {"icarus",
         LANGUAGE_VERILOG,
         {{"iverilog", "iverilog"}, {"vvp", "iverilog"}},
         AddIcarusSteps},
        {"nvc", LANGUAGE_VHDL, {{"nvc", nullptr}}, AddNvcSteps},
        {"verilator",
         LANGUAGE_VERILOG,
         {{"verilator", "verilator", "Verilator "}},
         AddVerilatorSteps},
    };
    return tools;
}

const TRunTool* FindRunTool(std::string_view name) {
    for (const TRunTool& tool : GetRunTools())
        if (name == tool.Name) return &tool;
    return nullptr;
}

void AddRun(const TRunTool& tool, const TBuildPlan& plan, const TRunWishes& wishes,
            const TRunScan& scan, TRunPlan* run) {
    TRunRecipe recipe(tool, plan, wishes, scan, run);
    tool.AddSteps(&recipe);
}
