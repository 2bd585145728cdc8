#pragma once
#include "flows/plan/buildplan.h"
#include <string>
#include <vector>

class ISFileName;

/// Takes an option text apart: what has a field in `settings` is put there, library files into
/// `*libraryFiles`, and the other words become its options of `step`. Blanks separate words, double
/// quotes group. Relative paths are taken against `folder`, which ends with '/'.
void AddOptions(const std::string& text, TPlanStep step, const std::string& folder,
                TPlanSettings* settings, std::vector<std::string>* libraryFiles);

/// The year of a VHDL standard that users name by two digits or four: "2008" for "08"; "" for none.
std::string FindVhdlStandard(const std::string& name);

/// `path` with '/', whole, without a delimiter at its end. A relative one is taken against
/// `folder`.
std::string WholePath(const std::string& path, const std::string& folder);
/// The same of a tracked file.
std::string WholePathOf(const ISFileName& file);
