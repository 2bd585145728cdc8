#pragma once
#include "services/base/api.h"
#include <string>

class THeldLock;

/// Keeps other threads and processes from changing a file while one reads, changes and saves it.
/// Every save of the library takes it, so whoever holds it from the reading on loses no save of
/// others. It is advisory: readers, and programs that know nothing of it, go on.
///
/// The lock is on a lock file in the folder of the file, named by the hash of the file's name,
/// behind symbolic links. The file itself need not be there, but its folder, and the user must be
/// allowed to write there, as for a save. The lock file is removed at the end. One that is left
/// over, as a killed program or a power failure leaves it, means nothing and blocks nobody: what
/// counts is the system's lock on it, which ends with its holder. Where the file system knows no
/// locks, nobody is kept away.
///
/// A thread may take the same file several times, as when it saves what it has locked; the others
/// wait for the last one to go. An object belongs to the thread that made it.
class HDLBUILDFILE_API TFileLock {
public:
    /// Waits for the lock, 10 seconds at most. A null path counts as empty.
    explicit TFileLock(const char* path);
    ~TFileLock();
    TFileLock(const TFileLock&) = delete;
    TFileLock& operator=(const TFileLock&) = delete;

    /// False when somebody else kept the lock for too long, and when there can be none: then the
    /// file must not be changed.
    bool IsHeld() const { return Held != nullptr; }
    /// Why the lock is not held, with the name of a lock file that is not free; "" when it is held.
    const std::string& GetReason() const { return Reason; }
    /// The canonical path of the file that symbolic links in the place of `path` lead to.
    const std::string& GetTarget() const { return Target; }

private:
    std::string Target;
    std::string Reason;
    THeldLock* Held = nullptr;
};
