#include "services/files/host.h"
#include <algorithm>
#include <cerrno>
#include <chrono>
#include <climits>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Stands beside the numbers of the system calls, which are positive.
constexpr int kNotRegular = -1;

bool Fail(std::string* reason, int error) {
    if (reason) *reason = error == kNotRegular ? "not a regular file" : std::strerror(error);
    return false;
}

bool IsNative(const std::string& path) {
    return !path.empty() && path[0] == '/';
}

/// A descriptor that closes itself.
class TDescriptor {
public:
    explicit TDescriptor(int number) : Number(number) {}
    ~TDescriptor() { Close(); }
    TDescriptor(const TDescriptor&) = delete;
    TDescriptor& operator=(const TDescriptor&) = delete;
    int Get() const { return Number; }
    bool IsOpen() const { return Number >= 0; }
    /// Also a late write error of a network drive arrives here.
    bool Close() {
        const int number = Number;
        Number = -1;
        return number < 0 || close(number) == 0;
    }

private:
    int Number;
};

bool ReadAll(int descriptor, std::size_t expectedSize, std::string* bytes) {
    bytes->clear();
    // One byte more shows the end of the file without another round.
    std::size_t size = 0;
    bytes->resize(expectedSize + 1);
    for (;;) {
        if (size == bytes->size()) bytes->resize(size * 2);
        const ssize_t count = read(descriptor, bytes->data() + size, bytes->size() - size);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return false;
        if (count == 0) break;
        size += static_cast<std::size_t>(count);
    }
    bytes->resize(size);
    return true;
}

bool WriteAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(descriptor, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

std::string FolderOf(const std::string& path) {
    return path.substr(0, path.rfind('/') + 1);
}

/// Follows links in the place of the file itself; those in its folders need no care. False for a
/// circle of links.
bool FollowLinks(std::string* path) {
    constexpr int kMostLinks = 40;
    char target[PATH_MAX];
    for (int links = 0; links <= kMostLinks; ++links) {
        const ssize_t length = readlink(path->c_str(), target, sizeof target);
        if (length < 0) return true;
        const std::string text(target, static_cast<std::size_t>(length));
        *path = IsNative(text) ? text : FolderOf(*path) + text;
    }
    errno = ELOOP;
    return false;
}

/// A name that no other file in the folder has, of another process or machine neither, short enough
/// for every file system.
std::string NewTemporaryName(const std::string& folder) {
    static unsigned number = 0;
    const auto now = std::chrono::system_clock::now().time_since_epoch().count();
    return folder + ".hdlbuildfile-" + std::to_string(getpid()) + "-" + std::to_string(now) + "-" +
           std::to_string(number++) + ".tmp";
}

int CreateTemporary(const std::string& folder, mode_t mode, std::string* name) {
    constexpr int kMostTries = 100;
    for (int tries = 0; tries < kMostTries; ++tries) {
        *name = NewTemporaryName(folder);
        const int descriptor = open(name->c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (descriptor >= 0 || errno != EEXIST) return descriptor;
    }
    return -1;
}

/// Owner and group come first: changing them drops some permissions.
bool TakeOverPermissions(int descriptor, const struct stat& from) {
    constexpr mode_t kPermissions = 07777;
    // Only the administrator may give files away; the permissions matter more.
    if (fchown(descriptor, from.st_uid, from.st_gid) != 0) errno = 0;
    struct stat status = {};
    if (fstat(descriptor, &status) != 0) return false;
    // Where all files have the same permissions, asking for them may be an error.
    if (((status.st_mode ^ from.st_mode) & kPermissions) == 0) return true;
    return fchmod(descriptor, from.st_mode & kPermissions) == 0;
}

/// Some file systems have nothing to flush, and say so.
bool FlushToDisk(int descriptor) {
    return fsync(descriptor) == 0 || errno == EINVAL;
}

/// The renaming itself must survive a power failure as well; not every system can do that.
void FlushFolder(const std::string& folder) {
    const TDescriptor descriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.IsOpen()) FlushToDisk(descriptor.Get());
}

/// Whether the file may be replaced; `*status` tells of it, `*exists` whether there is one.
bool MayReplace(const std::string& path, struct stat* status, bool* exists) {
    *exists = stat(path.c_str(), status) == 0;
    if (!*exists) return errno == ENOENT;
    if (S_ISDIR(status->st_mode)) {
        errno = EISDIR;
        return false;
    }
    if (!S_ISREG(status->st_mode)) {
        // A device or pipe would be gone afterwards.
        errno = kNotRegular;
        return false;
    }
    // Renaming would silently overwrite a write-protected file.
    return access(path.c_str(), W_OK) == 0;
}

/// Writes, flushes and renames; the temporary file is the caller's to remove when that fails.
bool WriteAndRename(int number, const struct stat* permissions, std::string_view bytes,
                    const std::string& temporary, const std::string& target) {
    TDescriptor descriptor(number);
    if (permissions && !TakeOverPermissions(number, *permissions)) return false;
    return WriteAll(number, bytes) && FlushToDisk(number) && descriptor.Close() &&
           rename(temporary.c_str(), target.c_str()) == 0;
}

}  // namespace

namespace Host {

TFileReadResult ReadBytes(const std::string& path, std::string* bytes, std::string* reason) {
    if (!IsNative(path)) {
        Fail(reason, ENOENT);
        return FILE_READ_MISSING;
    }
    // A pipe without a writer must not keep us waiting.
    const TDescriptor descriptor(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat status = {};
    if (!descriptor.IsOpen() || fstat(descriptor.Get(), &status) != 0) {
        const int error = errno;
        Fail(reason, error);
        return error == ENOENT || error == ENOTDIR ? FILE_READ_MISSING : FILE_READ_FAILED;
    }
    if (!S_ISREG(status.st_mode)) {
        Fail(reason, S_ISDIR(status.st_mode) ? EISDIR : kNotRegular);
        return FILE_READ_FAILED;
    }
    if (ReadAll(descriptor.Get(), static_cast<std::size_t>(status.st_size), bytes))
        return FILE_READ_DONE;
    Fail(reason, errno);
    return FILE_READ_FAILED;
}

bool ReplaceBytes(const std::string& path, std::string_view bytes, const std::string& like,
                  std::string* reason) {
    if (!IsNative(path)) return Fail(reason, ENOENT);
    std::string target = path;
    struct stat status = {};
    bool exists = false;
    if (!FollowLinks(&target) || !MayReplace(target, &status, &exists)) return Fail(reason, errno);
    if (!exists) exists = IsNative(like) && stat(like.c_str(), &status) == 0;
    std::string temporary;
    // Nobody else reads the bytes before the permissions are those of the old file.
    const int number = CreateTemporary(FolderOf(target), exists ? 0600 : 0666, &temporary);
    if (number < 0) return Fail(reason, errno);
    if (!WriteAndRename(number, exists ? &status : nullptr, bytes, temporary, target)) {
        const int error = errno;
        unlink(temporary.c_str());
        return Fail(reason, error);
    }
    FlushFolder(FolderOf(target));
    return true;
}

}  // namespace Host
