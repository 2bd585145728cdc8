#pragma once
#include "services/base/api.h"
#include <cstdint>
#include <string>

/// What one look at the disk tells about a file. Links are followed.
struct TFileStatus {
    bool Exists = false;
    bool IsDirectory = false;
    std::int64_t Time = 0;   ///< of the last modification, in nanoseconds since 1970 UTC
    std::int64_t Size = 0;   ///< in bytes
    bool IsUnknown = false;  ///< the look failed: there may be a file all the same

    /// Whether the file is still the same, as far as one look can tell.
    bool operator==(const TFileStatus& other) const {
        return Exists == other.Exists && Time == other.Time && Size == other.Size;
    }
};

/// Looks at the file of a canonical path: the one way in which the library asks what the disk
/// holds.
HDLBUILDFILE_API TFileStatus LookAtFile(const std::string& path);
/// Whether the file may be read, or written.
bool LookWhetherReadable(const std::string& path);
bool LookWhetherWritable(const std::string& path);

/// How often the library has looked so far, on all threads, so that tests can count disk accesses.
std::uint64_t CountOfFileLooks();

/// The time as the word that callers pass around: nanoseconds since 1970 UTC where `unsigned long`
/// has 64 bits, seconds where it has 32; 0 only when there is no file.
unsigned long TimeWordOf(const TFileStatus& status);
