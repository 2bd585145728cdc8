#pragma once
#include "flows/plan/buildplan.h"
#include <optional>
#include <string>
#include <vector>

class TBuildScan;
class TNeededFiles;
struct TUnitPlace;

/// The unit that a top means; none when the sources hold no such unit, or several.
std::optional<TUnitPlace> FindTopUnit(const TNeededFiles& files, const TBuildScan& scan,
                                      const TBuildTop& top);
/// Adds the sources that a scan cannot explain: those without a design unit, such as macros for
/// others, unread ones among them, and those that bind instances or verification units to others.
void AddUnexplained(const TBuildScan& scan, TNeededFiles* files);

/// Takes out of the plan the sources that its top `top` needs neither to be compiled nor to be
/// elaborated, the other tops, and the settings of languages that are left without sources. Reads
/// and scans the sources of `build`, which the plan is made of; when none of them holds the top,
/// nothing is taken out. The losses of the plan tell how it went. Returns the top, in the plan.
///
/// What a scan cannot explain stays in, with all that it needs: sources that cannot be read or are
/// in a language that is not scanned, those without a design unit, such as macros for others, those
/// that bind instances or verification units to others, and library files that options name.
const TBuildTop* LeaveOutUnneeded(THdlBuildFile& build, const TBuildTop& top, TBuildPlan* plan);
