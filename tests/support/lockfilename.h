#pragma once
#include "services/base/fold.h"
#include <string>

/// The name of the lock file of a file called `name`, in the same folder.
inline std::string LockFileName(const std::string& name) {
    return ".hdlbuildfile-" + std::to_string(HashIgnoringCase(name)) + ".lock";
}

/// Why a file cannot be locked whose lock file, a full path, somebody else has.
inline std::string LockedReason(const std::string& lockFile) {
    return "it is being changed elsewhere: \"" + lockFile + "\" stayed locked for 10 seconds";
}
