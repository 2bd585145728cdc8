#pragma once
#include <string>
#include <vector>

/// The names, separated by commas.
std::string JoinNames(const std::vector<std::string>& names);
/// The same with "or" before the last.
std::string JoinChoices(const std::vector<std::string>& names);

/// What to tell of a name that is none of `known`, without a line end:
/// "unknown language 'VHD'; nearest: VHDL; known: Verilog, VHDL".
std::string UnknownName(const std::string& kind, const std::string& name,
                        const std::vector<std::string>& known);
/// The same behind other words than "unknown language 'VHD'".
std::string WithKnownNames(const std::string& complaint, const std::string& name,
                           const std::vector<std::string>& known);
