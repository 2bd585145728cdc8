#include "services/files/filesystem_posix.h"
#include "services/files/limitedread.h"
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#ifdef __linux__
#include <linux/limits.h>
#include <sys/xattr.h>
#endif

// Reading whole files, and the steps of a save.

namespace {

constexpr const char* kNotRegular = "not a regular file";
constexpr mode_t kPermissions = 07777;

/// A descriptor that closes itself.
class TDescriptor {
public:
    explicit TDescriptor(int number) : Number(number) {}
    ~TDescriptor() {
        if (IsOpen()) close(Number);
    }
    TDescriptor(const TDescriptor&) = delete;
    TDescriptor& operator=(const TDescriptor&) = delete;
    int Get() const { return Number; }
    bool IsOpen() const { return Number >= 0; }

private:
    int Number;
};

TFileResult ReadSome(int descriptor, char* place, std::size_t room, std::size_t* count) {
    ssize_t size = -1;
    do size = read(descriptor, place, room);
    while (size < 0 && errno == EINTR);
    *count = size < 0 ? 0 : static_cast<std::size_t>(size);
    return ResultOf(size < 0 ? -1 : 0);
}

/// Some file systems have nothing to flush, and say so.
int FlushToDisk(int descriptor) {
    return fsync(descriptor) == 0 || errno == EINVAL ? 0 : -1;
}

/// Only the administrator may give files away; everybody may give them to a group of his own.
void TakeOverOwner(int descriptor, const struct stat& from) {
    if (fchown(descriptor, from.st_uid, from.st_gid) == 0) return;
    if (fchown(descriptor, static_cast<uid_t>(-1), from.st_gid) != 0) errno = 0;
}

#ifdef __linux__
/// Whether the attribute is a checksum of the file's bytes, which the system computes anew.
bool BelongsToBytes(const std::string& attribute) {
    return attribute == "security.ima" || attribute == "security.evm";
}

/// Whether an attribute may be left out: the user is not allowed to set it, the file system does
/// not know attributes, or it was removed since the list was made.
bool MayBeMissed(int error) {
    return error == EPERM || error == EACCES || error == ENOTSUP || error == ENODATA;
}

bool CopyAttribute(const char* from, const char* name, int descriptor) {
    std::string value(XATTR_SIZE_MAX, '\0');
    const ssize_t size = getxattr(from, name, value.data(), value.size());
    if (size < 0) return MayBeMissed(errno);
    return fsetxattr(descriptor, name, value.data(), static_cast<std::size_t>(size), 0) == 0 ||
           MayBeMissed(errno);
}

/// Access lists are among the extended attributes.
bool TakeOverAttributes(int descriptor, const char* from) {
    std::string names(XATTR_LIST_MAX, '\0');
    const ssize_t size = listxattr(from, names.data(), names.size());
    if (size < 0) return MayBeMissed(errno);
    names.resize(static_cast<std::size_t>(size));
    for (std::size_t begin = 0; begin < names.size();) {
        const std::string name = names.c_str() + begin;
        if (!BelongsToBytes(name) && !CopyAttribute(from, name.c_str(), descriptor)) return false;
        begin += name.size() + 1;
    }
    return true;
}
#else
bool TakeOverAttributes(int, const char*) {
    return true;
}
#endif

}  // namespace

TFileResult TNativeFileSystem::Read(const std::string& path, std::uint64_t limit,
                                    std::string* bytes) {
    // A pipe without a writer must not keep us waiting.
    const TDescriptor descriptor(open(Native(path), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat status = {};
    if (!descriptor.IsOpen() || fstat(descriptor.Get(), &status) != 0) {
        const int error = errno;
        TFileResult result = FailWith(error);
        if (error == ENOTDIR) result.Fault = TFileFault::Missing;
        return result;
    }
    if (S_ISDIR(status.st_mode)) return FailWith(EISDIR);
    if (!S_ISREG(status.st_mode)) return {TFileFault::Other, kNotRegular};
    const auto readSome = [&descriptor](char* place, std::size_t room, std::size_t* count) {
        return ReadSome(descriptor.Get(), place, room, count);
    };
    return ReadLimited(static_cast<std::uint64_t>(status.st_size), limit, readSome, bytes);
}

TFileResult TNativeFileSystem::CheckReplaceable(const std::string& path) {
    struct stat status = {};
    if (stat(Native(path), &status) != 0) return FailWith(errno);
    if (S_ISDIR(status.st_mode)) return FailWith(EISDIR);
    // A device or pipe would be gone afterwards.
    if (!S_ISREG(status.st_mode)) return {TFileFault::Other, kNotRegular};
    // Renaming would silently overwrite a write-protected file.
    return ResultOf(access(Native(path), W_OK));
}

TFileResult TNativeFileSystem::Create(const std::string& path, bool isPrivate, TFileNumber* file) {
    const int descriptor = open(Native(path), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC,
                                static_cast<mode_t>(isPrivate ? 0600 : 0666));
    *file = descriptor;
    return ResultOf(descriptor < 0 ? -1 : 0);
}

TFileResult TNativeFileSystem::Write(TFileNumber file, std::string_view bytes, std::size_t* count) {
    ssize_t written = -1;
    do written = write(static_cast<int>(file), bytes.data(), bytes.size());
    while (written < 0 && errno == EINTR);
    *count = written < 0 ? 0 : static_cast<std::size_t>(written);
    return ResultOf(written < 0 ? -1 : 0);
}

/// Owner and attributes come first: changing them changes some permissions.
TFileResult TNativeFileSystem::TakeOver(TFileNumber file, const std::string& from) {
    const int descriptor = static_cast<int>(file);
    struct stat former = {};
    struct stat present = {};
    if (stat(Native(from), &former) != 0) return FailWith(errno);
    TakeOverOwner(descriptor, former);
    if (!TakeOverAttributes(descriptor, Native(from)) || fstat(descriptor, &present) != 0)
        return FailWith(errno);
    mode_t permissions = former.st_mode & kPermissions;
    if (present.st_uid != former.st_uid || present.st_gid != former.st_gid)
        permissions &= static_cast<mode_t>(~(S_ISUID | S_ISGID));
    // Where all files have the same permissions, asking for them may be an error.
    if ((present.st_mode & kPermissions) == permissions) return {};
    return ResultOf(fchmod(descriptor, permissions));
}

TFileResult TNativeFileSystem::Flush(TFileNumber file) {
    return ResultOf(FlushToDisk(static_cast<int>(file)));
}

/// Also a late write error of a network drive arrives here.
TFileResult TNativeFileSystem::Close(TFileNumber file) {
    return ResultOf(close(static_cast<int>(file)));
}

TFileResult TNativeFileSystem::Link(const std::string& path, const std::string& secondName) {
    return ResultOf(link(Native(path), Native(secondName)));
}

TFileResult TNativeFileSystem::Rename(const std::string& from, const std::string& to) {
    return ResultOf(rename(Native(from), Native(to)));
}

TFileResult TNativeFileSystem::FlushFolder(const std::string& folder) {
    const TDescriptor descriptor(open(Native(folder), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.IsOpen()) return ResultOf(FlushToDisk(descriptor.Get()));
    // A folder that takes files without letting the user list them cannot be flushed by him.
    return errno == EACCES ? TFileResult() : FailWith(errno);
}
