#pragma once
#include "services/base/api.h"
#include <string>
#include <string_view>

// Whole files. Paths are in UTF-8, of any length. A null `reason` is allowed.

/// How the reading of a file ended.
enum TFileReadResult : int { FILE_READ_DONE = 0, FILE_READ_MISSING = 1, FILE_READ_FAILED = 2 };

/// Nothing but a regular file of no more bytes than the limit for all files (filelimit.h) is read:
/// all else is a failure, for which nothing is allocated.
HDLBUILDFILE_API TFileReadResult ReadWholeFile(const char* path, std::string* bytes,
                                               std::string* reason);

/// Writes a new file in the same folder, flushes it to the disk and puts it in the place of `path`,
/// through links and keeping owner, permissions and extended attributes as far as the user may set
/// them. The old file is never written in place; it stays as it was when any step fails, a folder
/// that takes no new file and one whose change does not reach the disk included. What a save of
/// this file left behind, because its process was killed, is removed. Takes the file's lock (see
/// TFileLock) for the time of the save: one that cannot be had is a failure.
HDLBUILDFILE_API bool ReplaceWholeFile(const char* path, std::string_view bytes,
                                       std::string* reason);

/// Copies `path` to `path` + ".bak", replacing an older one.
HDLBUILDFILE_API bool KeepBackup(const char* path, std::string* reason);

/// Makes the directory of `path` and those above it.
HDLBUILDFILE_API bool MakeDirectoryOf(const char* path);
