#pragma once
#include <string>

class THdlBuildFile;

/// Ends the process, which the fuzzer takes as a find.
[[noreturn]] void Give(const char* complaint, const std::string& detail);

/// All that files keep of a build but the settings of languages, a line each, from its public
/// operations: builds that are equal have equal texts. Groups without sources do not count.
std::string TextOfBuild(const THdlBuildFile& build);
/// The settings of languages as they are stored: a save converts options.
std::string TextOfLanguages(const THdlBuildFile& build);
