#include "services/hdl/timebase.h"

#include <cstddef>
#include <iterator>
#include <string_view>

namespace {

constexpr const char* kUnits[] = {"fs", "ps", "ns", "us", "ms", "s"};

const char* TextOf(TUnit unit) {
    const bool known = unit >= UNIT_FS && unit <= UNIT_S;
    return kUnits[known ? unit : UNIT_PS];
}

}  // namespace

const char* TTimeBase::GetBaseTimeUnitStr() const {
    return TextOf(BaseUnit);
}

const char* TTimeBase::GetDisplayTimeUnitStr() const {
    return TextOf(DisplayUnit);
}

bool TTimeBase::GetTimeUnitFromString(const char* text, TUnit* unit) {
    if (!text || !unit) return false;
    for (std::size_t i = 0; i < std::size(kUnits); ++i) {
        if (std::string_view(text) != kUnits[i]) continue;
        *unit = static_cast<TUnit>(i);
        return true;
    }
    return false;
}
