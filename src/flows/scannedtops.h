#pragma once
#include "flows/buildscan.h"
#include <string>
#include <vector>

/// A top-level component as a build records it.
struct TScannedTop {
    std::string Entity;
    std::string Architecture;  ///< "" when there is none or more than one
    std::string Library;
    THdlLanguage Language;
};

/// The units that may be top level and that `build`, which was scanned, does not record with any
/// architecture.
std::vector<TScannedTop> ListUnrecordedTops(const TBuildScan& scan, const THdlBuildFile& build);
