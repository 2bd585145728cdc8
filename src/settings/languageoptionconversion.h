#pragma once
#include "services/hdl/hdllanguage.h"
#include "services/hdl/simulatortype.h"
#include <string>
#include <string_view>

/// The option texts of the three steps of a simulator run.
struct TLanguageOptionTexts {
    std::string Build;    ///< compile step
    std::string Linker;   ///< link or elaboration step
    std::string Runtime;  ///< simulation run
    bool operator==(const TLanguageOptionTexts&) const = default;
};

/// What the writer of a build file adds to the linker options for line debugging, with each write.
inline constexpr std::string_view kLineDebugOption = " --simz_options +linedebug";

/// Whether options are converted for this pair at all; the texts of every other pair are copied.
bool IsOptionConversionSupported(THdlLanguage language, TSimulatorType simulator);

/// The target family of the option conversion; 0 for a simulator without one.
int GetOptionSimulatorFamily(TSimulatorType simulator);

/// How the three texts share the steps of `simulator`: 1 all in one step, 2 build and linker
/// options merged for both steps, 3 each text for its own step.
int GetOptionConversionMode(TSimulatorType simulator);

/// The texts in the language of `simulator`. `stored` holds the texts as the configuration has
/// them; in mode 2 its build text is the merged one. `crossStages` lets an option typed in the
/// wrong text move to the step that takes it. Words that cannot be parsed are passed on as typed.
TLanguageOptionTexts ConvertLanguageOptions(THdlLanguage language, TSimulatorType simulator,
                                            int mode, bool crossStages,
                                            const TLanguageOptionTexts& stored);
