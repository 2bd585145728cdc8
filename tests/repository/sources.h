#pragma once
#include <string>
#include <vector>

/// One header or source file of the project.
struct TSource {
    std::string Name;  ///< from src/ on, with '/'
    std::string Text;
    std::vector<std::string> Includes;  ///< those in double quotes
};

/// Every file below src that is compiled or included.
const std::vector<TSource>& Sources();

/// Null when there is no such file.
const TSource* FindSource(const std::string& name);

/// The folder below src that a file lies in; for those with rooms, the room. Files beside the rooms
/// are in "flows" or "cli".
std::string FolderOf(const std::string& name);

/// Whether the file is no part of the library, but uses it.
bool IsOutsideLibrary(const std::string& name);

/// The bytes of a file of the project; its path is relative to the project's folder.
std::string ReadProjectFile(const std::string& path);
