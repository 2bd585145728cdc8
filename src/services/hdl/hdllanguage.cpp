#include "services/hdl/hdllanguage.h"

#include "services/base/fold.h"
#include <cstddef>
#include <iterator>

namespace {

struct TLanguageTexts {
    const char* Stored;   // in files; none ends in another, because INI section names end in them
    const char* Display;  // for people
};

constexpr TLanguageTexts kLanguages[] = {
    {"Verilog", "Verilog"},            // LANGUAGE_VERILOG
    {"VHDL", "VHDL"},                  // LANGUAGE_VHDL
    {"Bluespec", "Bluespec Verilog"},  // LANGUAGE_BLUESPECVERILOG
    {"SystemC", "SystemC"},            // LANGUAGE_SYSTEMC
    {"C++", "C++"},                    // LANGUAGE_CPLUSPLUS
    {"Language5", "Language 5"},       // LANGUAGE_RESERVED5
    {"Specman", "Specman"},            // LANGUAGE_SPECMAN
    {"TestBuilder", "Test Builder"},   // LANGUAGE_TESTBUILDER
    {"Language8", "Language 8"},       // LANGUAGE_RESERVED8
    {"None", "None"},                  // LANGUAGE_NONE
};

const TLanguageTexts& TextsOf(THdlLanguage language) {
    const bool known = language >= 0 && language <= LANGUAGE_NONE;
    return kLanguages[known ? language : LANGUAGE_NONE];
}

}  // namespace

const char* GetStringFromHdlLanguage(THdlLanguage language) {
    return TextsOf(language).Stored;
}

THdlLanguage GetHdlLanguageFromString(const char* text) {
    const auto word = TrimmedView(text ? text : "");
    for (std::size_t i = 0; i < std::size(kLanguages); ++i)
        if (EqualIgnoringCase(word, kLanguages[i].Stored)) return static_cast<THdlLanguage>(i);
    return EqualIgnoringCase(word, "BluespecVerilog") ? LANGUAGE_BLUESPECVERILOG : LANGUAGE_NONE;
}

const char* GetDisplayStringFromHdlLanguage(THdlLanguage language) {
    return TextsOf(language).Display;
}
