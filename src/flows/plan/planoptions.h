#pragma once
#include "flows/plan/buildplan.h"
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class ISFileName;

/// Takes an option text apart: what has a field in `settings` is put there, library files into
/// `*libraryFiles`, and the other words become its options of `step`. Blanks separate words, double
/// quotes group. Relative paths are taken against `folder`, which ends with '/'.
void AddOptions(const std::string& text, TPlanStep step, const std::string& folder,
                TPlanSettings* settings, std::vector<std::string>* libraryFiles);

/// A standard of Verilog that needs a reader of SystemVerilog.
struct TVerilogStandard {
    const char* Year;
    const char* IcarusWord;  ///< with which Icarus Verilog reads it
};

inline constexpr std::array<TVerilogStandard, 3> kVerilogStandards = {{
    {"2005", "-g2005-sv"},
    {"2009", "-g2009"},
    {"2012", "-g2012"},
}};
/// What is meant by SystemVerilog where no year is told.
inline constexpr const char* kSystemVerilogYear = kVerilogStandards.back().Year;

/// The delays that a word of Verilog simulators chooses.
std::optional<TSimProjectDelayType> FindVerilogDelay(std::string_view word);
/// The year that a word of Icarus Verilog chooses; null for another word.
const char* FindVerilogYear(std::string_view icarusWord);
/// The word with which Icarus Verilog reads the Verilog of the plan; null when it needs none.
const char* FindIcarusWord(const TBuildPlan& plan);

/// The year of a VHDL standard that users name by two digits or four: "2008" for "08"; "" for none.
std::string FindVhdlStandard(const std::string& name);

/// `path` with '/', whole, without a delimiter at its end. A relative one is taken against
/// `folder`.
std::string WholePath(const std::string& path, const std::string& folder);
/// The same of a tracked file.
std::string WholePathOf(const ISFileName& file);
