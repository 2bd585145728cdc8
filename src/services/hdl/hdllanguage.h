#pragma once
#include "services/base/api.h"
#include "services/base/languagenumber.h"

/// The text stored in files: "Verilog", "VHDL", "Bluespec", "SystemC", "C++", "Language5",
/// "Specman", "TestBuilder", "Language8", "None". Numbers outside 0 to 9 give "None". Never null,
/// static.
HDLBUILDFILE_API const char* GetStringFromHdlLanguage(THdlLanguage language);

/// The inverse: trims, ignores ASCII case and takes "BluespecVerilog" for LANGUAGE_BLUESPECVERILOG.
/// Unknown, empty and null texts give LANGUAGE_NONE.
HDLBUILDFILE_API THdlLanguage GetHdlLanguageFromString(const char* text);

/// The text for people, for example "Bluespec Verilog". Never null, static.
HDLBUILDFILE_API const char* GetDisplayStringFromHdlLanguage(THdlLanguage language);
