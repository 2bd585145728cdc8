#pragma once
#include "flows/formats/exportwriter.h"
#include <string>
#include <vector>

// What GHDL and Icarus Verilog are called with.

/// Refuses a name that breaks what they write, where it stands between double quotes as it is.
/// Returns whether it does.
bool RefuseQuoted(const std::string& name, TExportWriter* writer);
/// The unit that GHDL elaborates: an entity, and its architecture where one is chosen.
std::vector<std::string> GhdlUnitOf(const TBuildTop& top);
/// The words of Icarus Verilog for the settings: which language and delays, where to look, defines
/// and options.
std::vector<std::string> IcarusOptions(TExportWriter* writer);
/// The words for the sources: library files behind their option.
std::vector<std::string> IcarusSources(TExportWriter* writer);
