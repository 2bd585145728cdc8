#pragma once
#include "services/files/filereplace.h"
#include <string>
#include <string_view>

/// Replaces the file of a canonical path whole, or leaves it as it was. Takes its lock (see
/// TFileLock): one that cannot be had is a failure.
///
/// The bytes go to a temporary file in the same folder, which is put in the place of the old one
/// once it is on the disk. Symbolic links are followed; owner, permissions and extended attributes
/// are those of the old file or, for a new one, of the file `like` unless that is "". What saves of
/// this file left behind when their process was killed is removed. `reason` may be null.
bool SaveFile(const std::string& path, std::string_view bytes, const std::string& like,
              std::string* reason);
/// The same with the bytes in parts.
bool SaveFileOfParts(const std::string& path, TFileParts parts, const std::string& like,
                     std::string* reason);
