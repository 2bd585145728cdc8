#pragma once
#include "services/hdl/simulatortype.h"
#include <string>

/// The simulator of that name or number; SIM_NONE when there is none.
TSimulatorType FindSimulator(const std::string& text);
/// The names of the simulators that support `language`, separated by commas; LANGUAGE_NONE: of all
/// that support any.
std::string KnownSimulators(THdlLanguage language);
