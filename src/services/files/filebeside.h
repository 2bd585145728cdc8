#pragma once
#include <string>
#include <string_view>

class IFileSystem;

// The files that the library puts beside another one for a while: its lock file, and the new file
// that takes its place.

/// How their names begin for a file called `name`: another file's are left alone, and every file
/// system takes names so long. Without regard to case, as some systems see one file in both
/// spellings.
std::string GetNameBeside(std::string_view name);

/// Removes such a file. Nothing depends on it.
void RemoveFileBeside(IFileSystem& system, const std::string& path) noexcept;
