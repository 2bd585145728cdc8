#pragma once
#include "buildfile/hdlbuildfile.h"
#include <string>

struct TCommandFileForm {
    bool Gof = false;       ///< without log file, user defines and other plus options
    bool Absolute = false;  ///< with whole paths; else they are relative to the build file's folder
};

/// The command file of a Verilog simulator.
struct TCommandFile {
    std::string Options;
    std::string Sources;  ///< a line for each

    std::string GetText() const { return Options + Sources; }
    /// Whether the last option and the first source read as one word, as nothing stands between.
    bool RunsTogether() const;
};

/// With whole paths, defines and plus options are left out: no build file holds them.
TCommandFile MakeCommandFile(THdlBuildFile* build, const TCommandFileForm& form);

/// The source listed by the build, of whatever group, that a new file at `path` would replace; null
/// for none. Links count.
const IHdlSourceFile* FindSourceReplacedBy(const std::string& path, const THdlBuildFile& build);

/// Whether both are one file, reached through links or not.
bool IsSameFile(const ISFileName* one, const ISFileName* other);
