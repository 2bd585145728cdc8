#pragma once
// Public: whoever edits settings has to know what they can hold.
#include "services/hdl/hdllanguage.h"
#include <algorithm>

/// The languages that every settings configuration holds and stores, in stored order.
inline constexpr THdlLanguage kStoredLanguages[] = {LANGUAGE_VERILOG, LANGUAGE_VHDL,
                                                    LANGUAGE_BLUESPECVERILOG, LANGUAGE_CPLUSPLUS,
                                                    LANGUAGE_TESTBUILDER};

inline bool IsStoredLanguage(THdlLanguage language) {
    return std::find(std::begin(kStoredLanguages), std::end(kStoredLanguages), language) !=
           std::end(kStoredLanguages);
}

/// Whether a settings configuration can have settings for `language` at all.
inline bool IsSettingsLanguage(THdlLanguage language) {
    // SystemC is a legal language, but has no stored settings: its code is compiled as C++.
    return IsStoredLanguage(language) || language == LANGUAGE_SYSTEMC;
}
