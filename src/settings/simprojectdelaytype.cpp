#include "settings/simprojectdelaytype.h"
#include <string_view>

const char* GetDelayTypeFromEnum(TSimProjectDelayType type) {
    switch (type) {
        case DELAY_TYPE_MINIMUM:
            return "min";
        case DELAY_TYPE_MAXIMUM:
            return "max";
        default:
            return "typical";
    }
}

TSimProjectDelayType ParseDelayType(const char* text) {
    const std::string_view given = text ? text : "";
    if (given == "min") return DELAY_TYPE_MINIMUM;
    if (given == "max") return DELAY_TYPE_MAXIMUM;
    return DELAY_TYPE_TYPICAL;
}
