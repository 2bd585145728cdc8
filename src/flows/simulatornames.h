#pragma once
#include "services/hdl/simulatortype.h"
#include <string>
#include <vector>

/// The simulator of that name or number; SIM_NONE when there is none.
TSimulatorType FindSimulator(const std::string& text);
/// The names of the simulators that support `language`; LANGUAGE_NONE: of all that support any.
std::vector<std::string> KnownSimulators(THdlLanguage language);
