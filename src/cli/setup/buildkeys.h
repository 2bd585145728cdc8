#pragma once
#include "flows/buildattributes.h"
#include <optional>
#include <string>
#include <vector>

class THdlBuildFile;

// The keys of a build: its attributes and settings by their names in files, and "variable.NAME".

/// The name of the variable that `key` means; none for another key.
std::optional<std::string> VariableOf(const std::string& key);
/// The key of a variable.
std::string KeyOfVariable(const std::string& name);

/// All keys, of variables those that the build has.
std::vector<std::string> KnownKeysOf(const THdlBuildFile& build);

/// Why an attribute does not take `text`; "" when it does.
std::string ValueComplaint(const TBuildAttribute& attribute, const std::string& text);
