#include "tests/flows/formats/carriedfeatures.h"
#include "flows/formats/exportformats.h"
#include <algorithm>
#include <functional>
#include <vector>

namespace {

/// What becomes of a feature.
constexpr const char* kCarried = "yes";
constexpr const char* kTold = "told";
constexpr const char* kIgnored = "no";
constexpr const char* kMeaningless = "–";  // for a format without sources of its language

/// One plan and another that has the feature, too.
struct TVariant {
    const char* Label;
    THdlLanguage Language;  ///< of both sources of the plan; none: there are no sources
    std::function<void(TBuildPlan* plan)> Add;
    bool IsWithoutTop = false;  ///< before; behind it, the only top is chosen
};

struct TFeature {
    const char* Heading;
    std::vector<TVariant> Variants;
};

TPlanSettings& Settings(TBuildPlan* plan) {
    return plan->Settings.front();
}

std::vector<TVariant> InBothLanguages(const std::function<void(TBuildPlan* plan)>& add) {
    return {{"VHDL", LANGUAGE_VHDL, add}, {"Verilog", LANGUAGE_VERILOG, add}};
}

TVariant Source(THdlLanguage language, const char* path) {
    return {"", LANGUAGE_NONE, [=](TBuildPlan* plan) {
                plan->Sources.push_back({path, language, "main", false, {}});
            }};
}

TVariant InVerilog(const std::function<void(TPlanSettings* settings)>& add) {
    return {"", LANGUAGE_VERILOG, [=](TBuildPlan* plan) { add(&Settings(plan)); }};
}

/// An option that the tools of a language take.
struct TStepOption {
    const char* Name;
    const char* Word;
};

constexpr TStepOption kStepOptions[2][kPlanSteps] = {
    {{"Verilog analysis", "-Wall"}, {"Verilog elaboration", "-Wall"}, {"Verilog run", "+word"}},
    {{"VHDL analysis", "--word"}, {"VHDL elaboration", "--word"}, {"VHDL run", "--word"}},
};

std::vector<TVariant> InOptions() {
    std::vector<TVariant> variants;
    for (const TPlanStep step : {STEP_ANALYSE, STEP_ELABORATE, STEP_RUN})
        for (const THdlLanguage language : {LANGUAGE_VHDL, LANGUAGE_VERILOG}) {
            const TStepOption& option = kStepOptions[language == LANGUAGE_VHDL][step];
            variants.push_back({option.Name, language, [=](TBuildPlan* plan) {
                                    Settings(plan).Options[step] = {option.Word};
                                }});
        }
    return variants;
}

std::vector<TVariant> InTops() {
    std::vector<TVariant> variants;
    for (const THdlLanguage language : {LANGUAGE_VHDL, LANGUAGE_VERILOG})
        variants.push_back({"", language,
                            [=](TBuildPlan* plan) {
                                plan->Tops = {{language, "work", "tb", ""}};
                            },
                            true});
    return variants;
}

const std::vector<TFeature>& Features() {
    static const std::vector<TFeature> features = {
        {"VHDL", {Source(LANGUAGE_VHDL, "/p/a.vhd")}},
        {"Verilog", {Source(LANGUAGE_VERILOG, "/p/a.v")}},
        {"C++", {Source(LANGUAGE_CPLUSPLUS, "/p/a.cpp")}},
        {"libraries",
         InBothLanguages([](TBuildPlan* plan) { plan->Sources.front().Library = "other"; })},
        {"order", InBothLanguages([](TBuildPlan* plan) {
             std::swap(plan->Sources.front().Path, plan->Sources.back().Path);
         })},
        {"needs", InBothLanguages([](TBuildPlan* plan) { plan->Sources.back().Needs = {0}; })},
        {"include directories", {InVerilog([](TPlanSettings* settings) {
             settings->IncludeDirectories = {HDLBUILDFILE_SOURCE_DIR
                                             "/examples/sensors/verilog/include"};
         })}},
        {"library directories",
         {InVerilog([](TPlanSettings* settings) { settings->LibraryDirectories = {"/p/lib"}; })}},
        {"library files",
         {{"", LANGUAGE_VERILOG,
           [](TBuildPlan* plan) { plan->Sources.back().IsLibraryFile = true; }}}},
        {"defines", {InVerilog([](TPlanSettings* settings) {
             settings->Defines = {{"TAPS", "16"}};
         })}},
        {"standard",
         {{"VHDL", LANGUAGE_VHDL, [](TBuildPlan* plan) { Settings(plan).Standard = "1993"; }},
          {"Verilog", LANGUAGE_VERILOG,
           [](TBuildPlan* plan) { Settings(plan).Standard = "2012"; }}}},
        {"delays",
         {InVerilog([](TPlanSettings* settings) { settings->Delay = DELAY_TYPE_MAXIMUM; })}},
        {"options", InOptions()},
        {"tops", InTops()},
    };
    return features;
}

TBuildPlan MakePlan(const TVariant& variant) {
    TBuildPlan plan;
    plan.Name = "soc";
    plan.Folder = "/p/";
    if (variant.Language == LANGUAGE_NONE) return plan;
    const std::string end = variant.Language == LANGUAGE_VHDL ? ".vhd" : ".v";
    for (const char* const name : {"/p/a", "/p/b"})
        plan.Sources.push_back({name + end, variant.Language, "work", false, {}});
    plan.Settings.emplace_back().Language = variant.Language;
    if (!variant.IsWithoutTop) plan.Tops = {{variant.Language, "work", "tb", ""}};
    return plan;
}

std::vector<std::string> LossesOf(const TExported& exported) {
    std::vector<std::string> losses;
    for (const TDiagnostic& loss : exported.Losses) losses.push_back(GetDiagnosticText(loss));
    return losses;
}

const char* FateOf(const TVariant& variant, const TExportFormat& format) {
    TBuildPlan plan = MakePlan(variant);
    const auto write = [&] {
        return format.Write({plan, plan.Folder, plan.Tops.empty() ? nullptr : &plan.Tops.front()});
    };
    const TExported before = write();
    const std::vector<std::string> known = LossesOf(before);
    for (const std::string& loss : known)
        if (loss.find("sources in") != std::string::npos) return kMeaningless;
    variant.Add(&plan);
    const TExported after = write();
    for (const std::string& loss : LossesOf(after))
        if (std::find(known.begin(), known.end(), loss) == known.end()) return kTold;
    return after.Text == before.Text ? kIgnored : kCarried;
}

/// "yes", or "VHDL yes, else told" where the variants differ.
std::string CellOf(const TFeature& feature, const TExportFormat& format) {
    std::vector<std::pair<std::string, std::string>> fates;
    for (const TVariant& variant : feature.Variants) {
        const std::pair<std::string, std::string> fate(variant.Label, FateOf(variant, format));
        if (fate.second != kMeaningless &&
            std::find(fates.begin(), fates.end(), fate) == fates.end())
            fates.push_back(fate);
    }
    if (fates.empty()) return kMeaningless;
    const bool isOne = std::all_of(fates.begin(), fates.end(), [&](const auto& fate) {
        return fate.second == fates.front().second;
    });
    if (isOne) return fates.front().second;
    std::string cell;
    std::string rest;
    for (const auto& [label, fate] : fates)
        if (fate == kCarried)
            cell.append(cell.empty() ? "" : ", ").append(label);
        else if (rest.empty() || rest == fate)
            rest = fate;
        else
            rest += " or " + fate;
    if (cell.empty()) return rest;
    cell += " yes, else " + rest;
    return cell;
}

}  // namespace

std::string MakeTableOfCarriedFeatures() {
    std::string table = "| Format |";
    std::string line = "|---|";
    for (const TFeature& feature : Features()) {
        table.append(" ").append(feature.Heading).append(" |");
        line += "---|";
    }
    table += "\n" + line + "\n";
    for (const TExportFormat& format : GetExportFormats()) {
        table.append("| `").append(format.Name).append("` |");
        for (const TFeature& feature : Features()) table += " " + CellOf(feature, format) + " |";
        table += "\n";
    }
    return table;
}
