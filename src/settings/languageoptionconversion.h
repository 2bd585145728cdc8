#pragma once
#include "services/hdl/hdllanguage.h"
#include "services/hdl/simulatortype.h"
#include <string>

/// The option texts of the three steps of a simulator run.
struct TLanguageOptionTexts {
    std::string Build;    ///< compile step
    std::string Linker;   ///< link or elaboration step
    std::string Runtime;  ///< simulation run
    bool operator==(const TLanguageOptionTexts&) const = default;
};

/// Whether options are converted for this pair at all; the texts of every other pair are copied.
bool IsOptionConversionSupported(THdlLanguage language, TSimulatorType simulator);

/// The options::TOptionFamily of a simulator; FAMILY_NONE for one without.
int GetOptionSimulatorFamily(TSimulatorType simulator);

/// How the three texts share the steps of a simulator.
enum TOptionConversionMode : int {
    MODE_ONE_STEP = 1,  ///< the build text alone, for all steps at once
    MODE_MERGED = 2,    ///< build and linker options together, for both steps
    MODE_EACH_STEP = 3  ///< each text for its own step
};

TOptionConversionMode GetOptionConversionMode(TSimulatorType simulator);

/// The texts in the language of `simulator`; other numbers for `mode` count as MODE_EACH_STEP. In
/// MODE_MERGED the build text of `stored` ends in a blank and the linker text, once: that copy is
/// taken off, so that each word counts once, as an option of the text that it was typed in.
/// `crossStages` lets an option typed in the wrong text move to the step that takes it. Words that
/// cannot be parsed are passed on as typed.
TLanguageOptionTexts ConvertLanguageOptions(THdlLanguage language, TSimulatorType simulator,
                                            int mode, bool crossStages,
                                            const TLanguageOptionTexts& stored);
