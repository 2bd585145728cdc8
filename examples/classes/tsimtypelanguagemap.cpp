// TSimTypeLanguageMap: which simulator runs which language.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    const TSimTypeLanguageMap* map = TSimTypeLanguageMap::instance();
    for (const THdlLanguage language : map->GetHdlLanguageList(SIM_VCS))
        std::cout << GetStringFromHdlLanguage(language) << "\n";
    // VCS runs no VHDL: the default of the language takes its place.
    const TSimulatorType vhdl = map->GetDefaultOrSupportedSimulator(LANGUAGE_VHDL, SIM_VCS);
    std::cout << "the default: " << (vhdl == map->GetDefaultSimulator(LANGUAGE_VHDL)) << "\n";
    return 0;
}
