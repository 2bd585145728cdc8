#pragma once
#include "sibling/api.h"

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

/// The text stored in files: "Verilog", "VHDL", "Bluespec", "SystemC", "C++", "Language5",
/// "Specman", "TestBuilder", "Language8", "None". Numbers outside 0 to 9 give "None". Never null,
/// static.
HDLBUILDFILE_API const char* GetStringFromHdlLanguage(THdlLanguage language);

/// The inverse: trims, ignores ASCII case and takes "BluespecVerilog" for LANGUAGE_BLUESPECVERILOG.
/// Unknown, empty and null texts give LANGUAGE_NONE.
HDLBUILDFILE_API THdlLanguage GetHdlLanguageFromString(const char* text);

/// The text for people, for example "Bluespec Verilog". Never null, static.
HDLBUILDFILE_API const char* GetDisplayStringFromHdlLanguage(THdlLanguage language);
