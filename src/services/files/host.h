#pragma once
#include "services/files/filereplace.h"
#include "services/files/filestatus.h"
#include <string>
#include <string_view>

/// What differs between the systems; nothing else in the library calls them for files. Paths are
/// canonical ones in UTF-8. A path that this system has no place for (a drive or host name on a
/// POSIX system, or an empty one) names no file: it is never looked for in the working directory.
namespace Host {

#ifdef _WIN32
inline constexpr char kDelimiter = '\\';
inline constexpr bool kHasDrives = true;
inline constexpr bool kIgnoresCase = true;
#else
inline constexpr char kDelimiter = '/';
inline constexpr bool kHasDrives = false;
inline constexpr bool kIgnoresCase = false;
#endif

/// The working directory, or that of a drive ("C:"). Never empty, not canonical yet.
std::string WorkingDirectory(std::string_view drive);

TFileStatus StatusOf(const std::string& path);
bool CanRead(const std::string& path);
/// Whether the file exists and may be written.
bool CanWrite(const std::string& path);
/// The path with every symbolic link followed; "" when that fails.
std::string ExpandLinks(const std::string& path);

bool RemoveEntry(const std::string& path);
bool MakeFolder(const std::string& path);
bool ChangeWorkingDirectory(const std::string& path);

/// `bytes` must not be null; `reason` may be, here and below.
TFileReadResult ReadBytes(const std::string& path, std::string* bytes, std::string* reason);
/// See ReplaceWholeFile. A new file gets the permissions of the file `like`, where that exists.
bool ReplaceBytes(const std::string& path, std::string_view bytes, const std::string& like,
                  std::string* reason);

/// "" when not set.
std::string EnvironmentVariable(const char* name);
/// The file of the library or program that this code is part of.
std::string ModuleFile();
/// The folder for the user's configuration files.
std::string ConfigurationFolder();

}  // namespace Host
