#include "services/options/convertedoptionresults.h"
#include <algorithm>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace options {

void TConvertedOptionResults::Add(TItem item) {
    Items.push_back(std::move(item));
}

std::string TConvertedOptionResults::GetArgsForPhases(const TCompilePhases& phases) const {
    return Join(phases, false);
}

std::string TConvertedOptionResults::GetElaboratorArgs() const {
    return Join({ELABORATOR}, false);
}

std::string TConvertedOptionResults::GetSimulatorArgs() const {
    return Join({SIMULATOR}, false);
}

std::string TConvertedOptionResults::GetForcedArgsForPhases(const TCompilePhases& phases) const {
    return Join(phases, true);
}

std::string TConvertedOptionResults::GetForcedElaboratorArgs() const {
    return Join({ELABORATOR}, true);
}

std::string TConvertedOptionResults::GetForcedSimulatorArgs() const {
    return Join({SIMULATOR}, true);
}

std::string TConvertedOptionResults::Join(const TCompilePhases& destinations, bool forced) const {
    std::string joined;
    std::unordered_set<std::string_view> flags;
    for (const TItem& item : Items) {
        const bool wanted = item.Forced == forced &&
                            std::find(destinations.begin(), destinations.end(), item.Destination) !=
                                destinations.end();
        if (!wanted || (item.Flag && !flags.insert(item.Text).second)) continue;
        if (!joined.empty()) joined += ' ';
        joined += item.Text;
    }
    return joined;
}

}  // namespace options
