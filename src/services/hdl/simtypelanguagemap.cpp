#include "services/hdl/simtypelanguagemap.h"

#include <algorithm>

TSimTypeLanguageMap* TSimTypeLanguageMap::instance() {
    static auto* map = new TSimTypeLanguageMap;
    return map;
}

const std::vector<THdlLanguage>& TSimTypeLanguageMap::GetHdlLanguageList(
    TSimulatorType type) const {
    const bool known = type >= SIM_NONE && type <= SIM_SIMULATOR30;
    return GetSimulatorTable()[static_cast<std::size_t>(known ? type : SIM_NONE)].Languages;
}

TSimulatorType TSimTypeLanguageMap::GetDefaultSimulator(THdlLanguage language) const {
    struct TDefault {
        THdlLanguage Language;
        TSimulatorType Simulator;
    };
    static constexpr TDefault kDefaults[] = {
        {LANGUAGE_VERILOG, SIM_ZORVIK_VERILOG},    {LANGUAGE_VHDL, SIM_ZORVIK_VHDL},
        {LANGUAGE_BLUESPECVERILOG, SIM_BLUESPEC},  {LANGUAGE_CPLUSPLUS, SIM_MICROSOFT_CPP},
        {LANGUAGE_TESTBUILDER, SIM_MICROSOFT_CPP}, {LANGUAGE_SPECMAN, SIM_SPECMAN}};
    for (const auto& row : kDefaults)
        if (row.Language == language) return row.Simulator;
    return SIM_NONE;
}

TSimulatorType TSimTypeLanguageMap::GetDefaultOrSupportedSimulator(THdlLanguage language,
                                                                   TSimulatorType type) const {
    const auto& languages = GetHdlLanguageList(type);
    const bool supported =
        std::find(languages.begin(), languages.end(), language) != languages.end();
    return supported ? type : GetDefaultSimulator(language);
}
