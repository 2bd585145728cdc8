#pragma once
#include "services/hdl/simulatortype.h"
#include <string>

/// The names of the DLLs that are built for one simulator: its prefix, `base` (null counts as
/// empty), a "d" for debugging, and ".dll".
HDLBUILDFILE_API std::string GetSystemCDllName(const char* base, TSimulatorType simulator,
                                               bool debug);
HDLBUILDFILE_API std::string GetTestBuilderDllName(const char* base, TSimulatorType simulator,
                                                   bool debug);
