#include "settings/languageoptionconversion.h"
#include "services/base/fold.h"
#include "services/options/optionconversion.h"
#include <initializer_list>
#include <string_view>

namespace {

using options::TConvertedOptionResults;

constexpr int kMergedMode = 2;
constexpr int kSingleStepMode = 1;
constexpr int kSingleStep =
    options::STAGE_COMPILE | options::STAGE_ELABORATE | options::STAGE_SIMULATE;

// One run of simulators that share an answer.
struct TSimulatorRange {
    int First;
    int Last;
    int Answer;
};

int AnswerFor(int simulator, std::initializer_list<TSimulatorRange> ranges, int otherwise) {
    for (const TSimulatorRange& range : ranges)
        if (simulator >= range.First && simulator <= range.Last) return range.Answer;
    return otherwise;
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

// Every write of a build file appends the linker options to the build options that it stores, after
// it has lengthened them for line debugging. The copies, the latest last, are cut off, so that a
// word typed as a linker option stays one.
std::string WithoutLinkerCopies(const std::string& build, const std::string& linker) {
    std::string_view rest = build;
    std::string copy = " " + linker;
    while (!TrimmedView(copy).empty()) {
        if (rest.ends_with(copy))
            rest.remove_suffix(copy.size());
        else if (copy.ends_with(kLineDebugOption))
            copy.resize(copy.size() - kLineDebugOption.size());
        else
            break;
    }
    return std::string(rest);
}

}  // namespace

bool IsOptionConversionSupported(THdlLanguage language, TSimulatorType simulator) {
    const bool isHdl = language == LANGUAGE_VERILOG || language == LANGUAGE_VHDL;
    return isHdl && AnswerFor(simulator, {{1, 6, 1}, {11, 13, 1}, {20, 21, 1}}, 0) != 0;
}

int GetOptionSimulatorFamily(TSimulatorType simulator) {
    return AnswerFor(simulator,
                     {{1, 2, 1},
                      {3, 3, 2},
                      {4, 5, 1},
                      {6, 6, 2},
                      {7, 7, 7},
                      {8, 9, 8},
                      {11, 17, 3},
                      {18, 21, 4}},
                     0);
}

int GetOptionConversionMode(TSimulatorType simulator) {
    return AnswerFor(simulator, {{7, 7, 1}, {22, 24, 1}, {8, 9, 2}, {11, 17, 2}}, 3);
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
    if (mode == kSingleStepMode) {
        convert(stored.Build, kSingleStep, &build);
        return {AssembleStage(build, kSingleStep), "", ""};
    }

    // Texts that share their results share their options' destinations.
    TConvertedOptionResults ownLinker;
    TConvertedOptionResults ownRuntime;
    const bool isMerged = mode == kMergedMode;
    TConvertedOptionResults& linker = crossStages || isMerged ? build : ownLinker;
    TConvertedOptionResults& runtime = crossStages ? build : ownRuntime;
    convert(isMerged ? WithoutLinkerCopies(stored.Build, stored.Linker) : stored.Build,
            options::STAGE_COMPILE, &build);
    convert(stored.Linker, options::STAGE_ELABORATE, &linker);
    convert(stored.Runtime, options::STAGE_SIMULATE, &runtime);
    return AssembleSteps(build, linker, runtime);
}
