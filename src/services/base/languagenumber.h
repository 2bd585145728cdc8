#pragma once

/// The languages of HDL sources. Files store the texts of GetStringFromHdlLanguage.
enum THdlLanguage : int {
    LANGUAGE_VERILOG = 0,
    LANGUAGE_VHDL = 1,
    LANGUAGE_BLUESPECVERILOG = 2,
    LANGUAGE_SYSTEMC = 3,
    LANGUAGE_CPLUSPLUS = 4,
    LANGUAGE_RESERVED5 = 5,
    LANGUAGE_SPECMAN = 6,
    LANGUAGE_TESTBUILDER = 7,
    LANGUAGE_RESERVED8 = 8,
    LANGUAGE_NONE = 9
};
