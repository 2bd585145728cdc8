#pragma once
#include "services/files/nativefilesystem.h"

// What the sources of TNativeFileSystem for POSIX systems share.

/// Canonical paths that begin otherwise belong to another system; "" names no file.
inline const char* Native(const std::string& path) {
    return !path.empty() && path[0] == '/' ? path.c_str() : "";
}
TFileResult FailWith(int error);
/// Of a system call that returns 0 when done.
TFileResult ResultOf(int status);
