#include "services/hdl/hdllanguagetable.h"

namespace {

// Names end the names of INI sections: none ends in another, and none holds '=' or ']'. SystemC is
// a legal language without stored settings: its code is compiled as C++. SystemVerilog counts as
// Verilog, the only language with a command line.
// clang-format off
std::vector<THdlLanguageRecord>* MakeLanguageTable() {
    return new std::vector<THdlLanguageRecord>{
        // language, name, display name, other names, extensions, default simulator, stored, valid, offered
        {LANGUAGE_VERILOG, "Verilog", "Verilog", {}, {".v", ".vo", ".vh", ".sv", ".svh"}, SIM_ZORVIK_VERILOG, true, true, true},
        {LANGUAGE_VHDL, "VHDL", "VHDL", {}, {".vhd", ".vhdl"}, SIM_ZORVIK_VHDL, true, true, true},
        {LANGUAGE_BLUESPECVERILOG, "Bluespec", "Bluespec Verilog", {"BluespecVerilog"}, {".bsv"}, SIM_BLUESPEC, true, true, true},
        {LANGUAGE_SYSTEMC, "SystemC", "SystemC", {}, {".sc"}, SIM_NONE, false, true, true},
        {LANGUAGE_CPLUSPLUS, "C++", "C++", {}, {".cpp", ".cc", ".cxx", ".c", ".h", ".hpp"}, SIM_MICROSOFT_CPP, true, true, true},
        {LANGUAGE_RESERVED5, "Language5", "Language 5", {}, {}, SIM_NONE, false, false, false},
        {LANGUAGE_SPECMAN, "Specman", "Specman", {}, {".e"}, SIM_SPECMAN, false, false, true},
        {LANGUAGE_TESTBUILDER, "TestBuilder", "Test Builder", {}, {".tb"}, SIM_MICROSOFT_CPP, true, true, true},
        {LANGUAGE_RESERVED8, "Language8", "Language 8", {}, {}, SIM_NONE, false, false, false},
        {LANGUAGE_NONE, "None", "None", {}, {}, SIM_NONE, false, false, false},
    };
}
// clang-format on

std::vector<THdlLanguage>* MakeStoredLanguages() {
    auto* languages = new std::vector<THdlLanguage>;
    for (const THdlLanguageRecord& record : GetHdlLanguageTable())
        if (record.HasStoredSettings) languages->push_back(record.Language);
    return languages;
}

}  // namespace

const std::vector<THdlLanguageRecord>& GetHdlLanguageTable() {
    static const auto* table = MakeLanguageTable();
    return *table;
}

const THdlLanguageRecord& GetHdlLanguageRecord(THdlLanguage language) {
    const bool isKnown = language >= LANGUAGE_VERILOG && language <= LANGUAGE_NONE;
    return GetHdlLanguageTable()[static_cast<std::size_t>(isKnown ? language : LANGUAGE_NONE)];
}

const std::vector<THdlLanguage>& GetStoredLanguages() {
    static const auto* languages = MakeStoredLanguages();
    return *languages;
}
