#include "services/hdl/simtypelanguagemap.h"

#include "services/hdl/hdllanguagetable.h"
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
    return GetHdlLanguageRecord(language).DefaultSimulator;
}

TSimulatorType TSimTypeLanguageMap::GetDefaultOrSupportedSimulator(THdlLanguage language,
                                                                   TSimulatorType type) const {
    const auto& languages = GetHdlLanguageList(type);
    const bool supported =
        std::find(languages.begin(), languages.end(), language) != languages.end();
    return supported ? type : GetDefaultSimulator(language);
}
