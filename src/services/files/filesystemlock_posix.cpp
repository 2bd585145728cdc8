#include "services/files/filesystem_posix.h"
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

// Lock files.

namespace {

// What another program put in the place of a lock file must not lead elsewhere or keep us waiting.
constexpr int kHowToOpen = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
constexpr mode_t kEverybody = 0666;

/// Why a file that is there could not be opened.
TFileResult RefusalToOpen(int error) {
    if (error == ENOENT) return FailWith(EBUSY);  // removed meanwhile
    TFileResult result = FailWith(error);
    // One that is not open to everybody yet is no more than that.
    result.Fault = error == EACCES ? TFileFault::Denied : TFileFault::NameTaken;
    return result;
}

/// Whether flock failed because nobody can lock a file there, as on some network drives.
bool HasNoLocks(int error) {
    return error == ENOSYS || error == EOPNOTSUPP || error == ENOLCK;
}

}  // namespace

TFileResult TNativeFileSystem::OpenLock(const std::string& path, TFileNumber* file) {
    const auto openAs = [&](int how) {
        return Uninterrupted([&] { return open(Native(path), how | kHowToOpen, kEverybody); });
    };
    int descriptor = openAs(O_RDWR | O_CREAT | O_EXCL);
    if (descriptor >= 0) {
        // One that is left over must not keep the others of a team out, whatever the user's mask.
        (void)Uninterrupted([&] { return fchmod(descriptor, kEverybody); });
    } else if (errno == EEXIST) {
        descriptor = openAs(O_RDWR);
        if (descriptor < 0) return RefusalToOpen(errno);
    }
    *file = descriptor;
    return ResultOf(descriptor < 0 ? -1 : 0);
}

TFileResult TNativeFileSystem::Lock(TFileNumber file) {
    const auto lock = [&] { return flock(static_cast<int>(file), LOCK_EX | LOCK_NB); };
    if (Uninterrupted(lock) == 0) return {};
    const int error = errno;
    TFileResult result = FailWith(error);
    if (HasNoLocks(error)) result.Fault = TFileFault::Unsupported;
    return result;
}

TFileResult TNativeFileSystem::CheckNames(const std::string& path, TFileNumber file) {
    struct stat named = {};
    struct stat opened = {};
    const auto lookAtName = [&] { return lstat(Native(path), &named); };
    const auto lookAtFile = [&] { return fstat(static_cast<int>(file), &opened); };
    if (Uninterrupted(lookAtName) != 0 || Uninterrupted(lookAtFile) != 0) return FailWith(errno);
    const bool isSame = named.st_dev == opened.st_dev && named.st_ino == opened.st_ino;
    return isSame ? TFileResult() : FailWith(ENOENT);
}
