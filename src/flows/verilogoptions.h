#pragma once
#include "flows/scan/scannedfile.h"
#include <string>
#include <string_view>
#include <vector>

/// What the compile options of Verilog tell about the sources.
struct TVerilogOptions {
    std::vector<TScanDefine> Defines;
    std::vector<std::string> IncludeFolders;     // as written
    std::vector<std::string> LibraryFolders;     // as written
    std::vector<std::string> LibraryExtensions;  // with their dots
    std::vector<std::string> LibraryFiles;       // as written
    std::vector<std::string> EmptyDefines;       // names of those with a sign and no value behind
    std::vector<std::string> Others;             // words that are none of these options
};

/// Adds what `text` gives to `*options`. Words stand between blanks, unless in double quotes, which
/// are taken off; options are known in the spellings that simulators have in common:
/// "+define+A=1+B", "-define A=1", "-DA=1", "+incdir+D", "-incdir D", "-ID", "-y D", "+libext+.v",
/// "-v F".
void AddVerilogOptions(std::string_view text, TVerilogOptions* options);
