#pragma once
#include <string_view>
#include <vector>

// Patterns of file names. `?` is one character and `*` any run of them, both inside a part of a
// path; a part that is `**` is any number of parts, none included. Letters of ASCII match in either
// case, as names of files compare. Both '/' and '\' delimit.

/// Whether the text holds a `*` or a `?`.
bool IsFilePattern(std::string_view text);

/// Whether `pattern` means the whole `path`.
bool MatchesFilePattern(std::string_view pattern, std::string_view path);
/// The same for one part; `**` is not special.
bool MatchesPartOfPattern(std::string_view pattern, std::string_view part);

/// The parts between the delimiters. One at the end adds none; one in front adds an empty part.
std::vector<std::string_view> PartsOfPath(std::string_view path);
