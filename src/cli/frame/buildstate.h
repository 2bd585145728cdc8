#pragma once
#include "cli/frame/changereport.h"

class THdlBuildFile;

/// All that users set in a build but for its sources, under the names of commands and reports.
TState StateOf(const THdlBuildFile& build);

/// Gives each state the names of the other one, as null, so that what comes and goes is reported.
void NameAll(TState* before, TState* after);
