#pragma once
#include <string>
#include <vector>

/// A VHDL-2008 source of the test design.
struct TDesignSource {
    std::string Library;
    std::string Path;
    std::string Text;
};

/// A design of four libraries with every construct that makes one file need another: several units
/// in a file, units spread over files, contexts, generic packages, configurations, selected names,
/// verification units, extended and Latin-1 identifiers. In an order that compiles.
std::vector<TDesignSource> MakeVhdlDesign();
