#pragma once
#include "flows/scan/verilogtoken.h"
#include <string_view>

/// None for what is no keyword. `isSystemVerilog` tells whether those count that SystemVerilog
/// added.
TVerilogKeyword FindVerilogKeyword(std::string_view word, bool isSystemVerilog);
