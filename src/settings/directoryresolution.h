#pragma once
#include <string>

class ISFileName;

/// Whether `file` is the user's or the system's INI file; null is not.
bool IsIniFileName(const ISFileName* file);
/// The directory that relative texts of the settings in `file` start from, with its final
/// delimiter: that of the file, or the installation directory for the settings in an INI file.
std::string BaseDirectoryOf(const ISFileName* file);

/// `directory` made absolute. A relative one ("" counts as ".") is taken against the directory of
/// `base`, a file or a directory text that ends with a delimiter, and comes without a final
/// delimiter; an absolute one gets a final backslash unless it ends with a delimiter. Null texts or
/// an empty base are a failed check, and give `directory` as it is.
std::string ResolveDirectoryAgainst(const char* directory, const char* base);
