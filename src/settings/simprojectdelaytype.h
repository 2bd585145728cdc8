#pragma once
#include "services/base/api.h"

/// Which of an HDL model's delay values a simulation uses. Project files store the number, INI
/// files the text of GetDelayTypeFromEnum.
enum TSimProjectDelayType : int {
    DELAY_TYPE_MINIMUM = 0,
    DELAY_TYPE_TYPICAL = 1,
    DELAY_TYPE_MAXIMUM = 2
};

/// "min", "max", and "typical" for every other number. Static, never null.
HDLBUILDFILE_API const char* GetDelayTypeFromEnum(TSimProjectDelayType type);
/// The inverse, exact; every other text, null too, gives DELAY_TYPE_TYPICAL.
HDLBUILDFILE_API TSimProjectDelayType ParseDelayType(const char* text);
