#pragma once
#include "flows/linking/linkeddesign.h"
#include <string>
#include <vector>

/// A file that is to be scanned.
struct TSourceToScan {
    std::string Path;
    THdlLanguage Language;
    std::string Library;  ///< that it is compiled into
};

/// What a scan gave.
struct TSourceScan {
    TDesignFiles Files;                ///< one for each source, without units when it was not read
    std::vector<std::string> Reasons;  ///< for each source why it could not be read; "" when it was
};

/// Whether sources of the language can be scanned.
bool CanScanLanguage(THdlLanguage language);

/// Reads and scans the sources, all processors at work. A text is let go of with the scan of its
/// file: the memory does not grow with the bytes, but for those of included files. Languages that
/// cannot be scanned give no units. The options are those of Verilog.
TSourceScan ScanSources(const std::vector<TSourceToScan>& sources, TScanOptions options);
