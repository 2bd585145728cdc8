#include "flows/simulatornames.h"
#include <algorithm>

TSimulatorType FindSimulator(const std::string& text) {
    for (const TSimulatorRecord& record : GetSimulatorTable())
        if (text == record.Name || text == std::to_string(record.Type)) return record.Type;
    return SIM_NONE;
}

std::vector<std::string> KnownSimulators(THdlLanguage language) {
    std::vector<std::string> names;
    for (const TSimulatorRecord& record : GetSimulatorTable()) {
        const auto& languages = record.Languages;
        const bool isMeant =
            language == LANGUAGE_NONE
                ? !languages.empty()
                : std::find(languages.begin(), languages.end(), language) != languages.end();
        if (isMeant) names.emplace_back(record.Name);
    }
    return names;
}
