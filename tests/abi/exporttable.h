#pragma once
#include <set>
#include <string>

/// What the library that this program was linked with exports.
struct TExportTable {
    std::string LibraryName;        ///< by which programs load it: the SONAME, the DLL's name
    std::set<std::string> Symbols;  ///< demangled, with std::string for its long name
};

/// Read from the ELF file, or on Windows from the DLL as it is loaded. Empty when there is none.
TExportTable ReadExportTable();

/// The demangled form of one name.
std::string Demangled(const char* symbol);
