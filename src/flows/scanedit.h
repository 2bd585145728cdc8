#pragma once
#include "flows/buildscan.h"
#include "flows/editedfile.h"
#include "flows/scannedtops.h"
#include <string>
#include <vector>

class THdlBuildFile;

/// What a scan changes in a build.
struct TScanChanges {
    std::vector<TDependencyDifference> Differences;  ///< unexplained dependencies are removed
    std::vector<TScannedTop> Tops;                   ///< are added
};

/// Changes `build`: the sources of the differences depend on what they lacked and not on what was
/// unexplained, and the tops are added.
void ApplyScan(const TBuildScan& scan, const TScanChanges& changes, THdlBuildFile* build);

/// The same in `build` and in the text of its file, which it was read from. Returns why the text
/// cannot take that, as TEditedFile::Change does; "" when it can.
std::string EditScanned(const TBuildScan& scan, const TScanChanges& changes, THdlBuildFile* build,
                        TEditedFile* file);
