#pragma once
#include "services/files/nativefilesystem.h"
#include <cerrno>
#include <cstdint>

struct stat;

// What the sources of TNativeFileSystem for POSIX systems share.

/// Canonical paths that begin otherwise belong to another system; "" names no file.
inline const char* Native(const std::string& path) {
    return !path.empty() && path[0] == '/' ? path.c_str() : "";
}
TFileResult FailWith(int error);
/// Of a system call that returns 0 when done.
TFileResult ResultOf(int status);
/// The time of the last modification, since 1970 UTC.
std::int64_t NanosecondsOf(const struct stat& status);
/// Makes a system call that returns -1 when it failed, again as long as signals interrupt it: some
/// file systems let them interrupt any call.
template <class Call>
auto Uninterrupted(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR) result = call();
    return result;
}
