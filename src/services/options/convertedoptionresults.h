#pragma once
#include "services/options/compilephase.h"
#include <string>
#include <vector>

namespace options {

/// Options in the language of a target simulator, in the order of the texts that they were typed
/// in.
///
/// Each operation joins the items of its destinations with single blanks. An item marked as a flag
/// is given once; others are repeated as often as they were added, because order and repetition can
/// matter, as in "+define+A=1 ... +define+A=2". Forced items are kept apart from the others.
class TConvertedOptionResults {
public:
    struct TItem {
        std::string Text;
        TOptionDestination Destination;
        bool Forced = false;  ///< meant by the user for this target alone
        bool Flag = false;    ///< a known option without a value
    };

    void Add(TItem item);
    const std::vector<TItem>& GetItems() const { return Items; }

    std::string GetArgsForPhases(const TCompilePhases& phases) const;
    std::string GetElaboratorArgs() const;
    std::string GetSimulatorArgs() const;

    std::string GetForcedArgsForPhases(const TCompilePhases& phases) const;
    std::string GetForcedElaboratorArgs() const;
    std::string GetForcedSimulatorArgs() const;

private:
    std::string Join(const TCompilePhases& destinations, bool forced) const;

    std::vector<TItem> Items;
};

}  // namespace options
