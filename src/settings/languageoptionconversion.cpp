#include "settings/languageoptionconversion.h"
#include "services/options/optionconversion.h"

namespace {

using options::TConvertedOptionResults;

constexpr int kSingleStep =
    options::STAGE_COMPILE | options::STAGE_ELABORATE | options::STAGE_SIMULATE;

// How the options of the simulators from First to Last are converted.
struct TSimulatorConversion {
    TSimulatorType First;
    TSimulatorType Last;
    int Family;
    TOptionConversionMode Mode;
    bool IsSupported;  // for Verilog and VHDL
};

constexpr TSimulatorConversion kConversions[] = {
    {SIM_ZORVIK_VERILOG, SIM_ZORVIK_VERILOG_32, options::FAMILY_ZORVIK, MODE_EACH_STEP, true},
    {SIM_ZORVIK_VERILOG_64, SIM_ZORVIK_VERILOG_64, options::FAMILY_ZORVIK_64, MODE_EACH_STEP, true},
    {SIM_ZORVIK_VHDL, SIM_ZORVIK_VHDL_32, options::FAMILY_ZORVIK, MODE_EACH_STEP, true},
    {SIM_ZORVIK_VHDL_64, SIM_ZORVIK_VHDL_64, options::FAMILY_ZORVIK_64, MODE_EACH_STEP, true},
    {SIM_ZORVIK_CL, SIM_ZORVIK_CL, options::FAMILY_ZORVIK_CL, MODE_ONE_STEP, false},
    {SIM_ACTIVEHDL_VHDL, SIM_ACTIVEHDL_VERILOG, options::FAMILY_ACTIVEHDL, MODE_MERGED, false},
    {SIM_MODELSIM_VERILOG, SIM_MODELSIM_VERILOG_SE, options::FAMILY_MODELSIM, MODE_MERGED, true},
    {SIM_MODELSIM_VHDL, SIM_MODELSIM_VHDL_PE, options::FAMILY_MODELSIM, MODE_MERGED, false},
    {SIM_NC_VHDL, SIM_NC_VHDL_64, options::FAMILY_NCSIM, MODE_EACH_STEP, false},
    {SIM_NC_VERILOG, SIM_NC_VERILOG_64, options::FAMILY_NCSIM, MODE_EACH_STEP, true},
    {SIM_VCS, SIM_VERILOGXL, options::FAMILY_NONE, MODE_ONE_STEP, false},
};

const TSimulatorConversion& ConversionOf(TSimulatorType simulator) {
    static constexpr TSimulatorConversion kOther{SIM_NONE, SIM_NONE, options::FAMILY_NONE,
                                                 MODE_EACH_STEP, false};
    for (const TSimulatorConversion& row : kConversions)
        if (simulator >= row.First && simulator <= row.Last) return row;
    return kOther;
}

// What goes to one step of the simulator's run.
std::string AssembleStage(const TConvertedOptionResults& results, int stage) {
    const auto phases = options::GetCompilePhasesForStage(stage);
    const bool elaborates = stage & options::STAGE_ELABORATE;
    const bool simulates = stage & options::STAGE_SIMULATE;
    std::string text;
    for (const std::string& part :
         {results.GetArgsForPhases(phases), elaborates ? results.GetElaboratorArgs() : "",
          simulates ? results.GetSimulatorArgs() : "", results.GetForcedArgsForPhases(phases),
          elaborates ? results.GetForcedElaboratorArgs() : "",
          simulates ? results.GetForcedSimulatorArgs() : ""}) {
        if (!text.empty() && !part.empty()) text += ' ';
        text += part;
    }
    return text;
}

TLanguageOptionTexts AssembleSteps(const TConvertedOptionResults& build,
                                   const TConvertedOptionResults& linker,
                                   const TConvertedOptionResults& runtime) {
    return {AssembleStage(build, options::STAGE_COMPILE),
            AssembleStage(linker, options::STAGE_ELABORATE),
            AssembleStage(runtime, options::STAGE_SIMULATE)};
}

std::string WithoutLinkerCopy(const std::string& build, const std::string& linker) {
    const std::string copy = " " + linker;
    return build.ends_with(copy) ? build.substr(0, build.size() - copy.size()) : build;
}

}  // namespace

bool IsOptionConversionSupported(THdlLanguage language, TSimulatorType simulator) {
    const bool isHdl = language == LANGUAGE_VERILOG || language == LANGUAGE_VHDL;
    return isHdl && ConversionOf(simulator).IsSupported;
}

int GetOptionSimulatorFamily(TSimulatorType simulator) {
    return ConversionOf(simulator).Family;
}

TOptionConversionMode GetOptionConversionMode(TSimulatorType simulator) {
    return ConversionOf(simulator).Mode;
}

TLanguageOptionTexts ConvertLanguageOptions(THdlLanguage language, TSimulatorType simulator,
                                            int mode, bool crossStages,
                                            const TLanguageOptionTexts& stored) {
    if (!IsOptionConversionSupported(language, simulator)) return stored;

    const options::TOptionTarget target{GetOptionSimulatorFamily(simulator), language};
    const auto convert = [&target](const std::string& text, int stage,
                                   TConvertedOptionResults* results) {
        const auto source = stage == options::STAGE_SIMULATE ? options::SOURCE_RUNTIME
                                                             : options::SOURCE_BUILD_OR_LINKER;
        options::ParseAndConvertOptions(text.c_str(), source, stage, target, nullptr, results);
    };

    TConvertedOptionResults build;
    if (mode == MODE_ONE_STEP) {
        convert(stored.Build, kSingleStep, &build);
        return {AssembleStage(build, kSingleStep), "", ""};
    }

    // An option may move to another step only where the texts of both go to the same results.
    TConvertedOptionResults ownLinker;
    TConvertedOptionResults ownRuntime;
    const bool isMerged = mode == MODE_MERGED;
    TConvertedOptionResults& linker = crossStages || isMerged ? build : ownLinker;
    TConvertedOptionResults& runtime = crossStages ? build : ownRuntime;
    convert(isMerged ? WithoutLinkerCopy(stored.Build, stored.Linker) : stored.Build,
            options::STAGE_COMPILE, &build);
    convert(stored.Linker, options::STAGE_ELABORATE, &linker);
    convert(stored.Runtime, options::STAGE_SIMULATE, &runtime);
    return AssembleSteps(build, linker, runtime);
}
