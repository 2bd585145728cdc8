#pragma once
#include "services/hdl/hdllanguage.h"
#include <string>
#include <vector>

class THdlBuildFile;

/// A top-level component of a build. The names are in the escaped form of the language.
struct TBuildTop {
    THdlLanguage Language;
    std::string Library;
    std::string Entity;
    std::string Architecture;  ///< "" without one
};

/// The entity's name on command lines of simulators: an escaped one of Verilog without the
/// backslash and the blank around it.
std::string PlainNameOf(const TBuildTop& top);

/// All of them, in the order of the languages, then of the lists.
std::vector<TBuildTop> ListTops(const THdlBuildFile& build);

bool HasTop(const THdlBuildFile& build, const TBuildTop& top);
/// False when an equal one is listed.
bool AddTop(THdlBuildFile& build, const TBuildTop& top);
/// False when none is listed that is equal by the rule of its language.
bool RemoveTop(THdlBuildFile& build, const TBuildTop& top);
