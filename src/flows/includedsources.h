#pragma once
#include "flows/sourcesearch.h"
#include <string>
#include <vector>

/// Sources of folders, sorted into those that are compiled and those that others include.
struct TSortedSources {
    std::vector<TFoundSource> Sources;  ///< that are compiled on their own
    std::vector<std::string> Included;  ///< that are not, though a folder or a path gave them
    /// From which includes lead to their files, each once, with the delimiter that ends it.
    std::vector<std::string> IncludeFolders;
};

/// Reads the Verilog sources of `found`, and the files with the extensions of headers in its Rest.
/// A file that another one includes is not compiled on its own, nor is a header without a module or
/// package; any other header is, behind all others. What is included under a condition that nobody
/// has decided counts only when it has no module or package either. An included file is looked for
/// beside the including one, then among all that was found.
TSortedSources SortOutIncluded(const TFoundSources& found);
