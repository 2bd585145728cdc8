#pragma once
#include "flows/buildscan.h"
#include "flows/compilesort.h"
#include "flows/scannedtops.h"
#include <vector>

class THdlBuildFile;

/// What a scan changes in a build.
struct TScanChanges {
    std::vector<TDependencyDifference> Differences;  ///< unexplained dependencies are removed
    std::vector<TBuildTop> Tops;                     ///< are added
};

/// What of a scan is wanted.
struct TScanWishes {
    bool Exact = false;    ///< unexplained dependencies go
    bool SetTops = false;  ///< units that nobody instantiates become top-level components
};

/// The changes that bring `build`, which was scanned, in line.
TScanChanges FindScanChanges(const TBuildScan& scan, const THdlBuildFile& build,
                             const TScanWishes& wishes);
/// Changes `build`: the sources of the differences depend on what they lacked and not on what was
/// unexplained, and the tops are added.
void ApplyScan(const TBuildScan& scan, const TScanChanges& changes, THdlBuildFile* build);

/// The sources of Verilog, in the order in which their dependencies let them be compiled.
TCompileSort SortVerilog(THdlBuildFile& build);
/// Lists them in that order.
void ApplySort(const TCompileSort& sort, THdlBuildFile* build);
