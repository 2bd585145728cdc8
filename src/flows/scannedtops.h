#pragma once
#include "flows/buildscan.h"
#include "flows/buildtops.h"
#include "flows/documentfindings.h"
#include <vector>

/// The units that may be top level and that `build`, which was scanned, does not record with any
/// architecture. The architecture is "" when there is none or more than one.
std::vector<TBuildTop> ListUnrecordedTops(const TBuildScan& scan, const THdlBuildFile& build);

/// The recorded top-level components that no source of their library declares, of those in
/// `mentions`. Nothing is told of libraries that `options` name and the build does not fill, and of
/// those with a source that could not be scanned.
std::vector<TTopMention> ListUnheldTops(const TBuildScan& scan, const TLinkOptions& options,
                                        const std::vector<TTopMention>& mentions);
