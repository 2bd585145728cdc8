#pragma once
#include "services/base/api.h"
#include <cstddef>
#include <map>
#include <string>
#include <vector>

class IFileName;

/// Variables in addition to the process's environment; they are looked up first, with exact
/// case.
using TPseudoVariables = std::map<std::string, std::string>;

/// What one expansion may insert: bytes, and values.
inline constexpr std::size_t kLongestExpansion = 4'000'000;
inline constexpr std::size_t kMostExpandedNames = 100'000;

/// Expands ${NAME}, $(NAME), $NAME and %NAME%. Values are expanded in turn, a name never inside
/// itself; an unknown name, and one whose value would exceed these limits, stays as written.
/// Null text counts as empty, null variables as none.
HDLBUILDFILE_API std::string ResolveOrvaneEnvVariables(const char* text,
                                                       const TPseudoVariables* variables = nullptr);
HDLBUILDFILE_API std::vector<std::string> ResolveOrvaneEnvVariables(
    const std::vector<std::string>& texts, const TPseudoVariables* variables = nullptr);

/// Whether a well-formed reference occurs, known or not.
HDLBUILDFILE_API bool HasOrvaneEnvVariable(const char* text);

/// Sets `prefix`_PATH, _DIR, _NAME and _EXT to the file's full path, directory, name without
/// extension and extension. They are absolute: after a project moves they must be set anew. Null
/// arguments: nothing.
HDLBUILDFILE_API void AddPseudoEnvironmentVariablesForFilename(TPseudoVariables* variables,
                                                               const IFileName* file,
                                                               const char* prefix);
/// The value of an environment variable in UTF-8; false when it is not set or empty.
HDLBUILDFILE_API bool GetEnvironmentVariableText(const char* name, std::string* value);
