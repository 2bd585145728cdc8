#pragma once
#include "cli/frame/command.h"

/// Whether it is given by its name, not found by its place.
inline bool IsOption(const TArgument& argument) {
    return argument.Name[0] == '-';
}

/// Whether it may be given several times.
inline bool MayBeRepeated(const TArgument& argument) {
    return std::holds_alternative<std::vector<std::string>*>(argument.Value);
}
