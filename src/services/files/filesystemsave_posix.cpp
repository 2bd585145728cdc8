#include "services/files/filesystem_posix.h"
#include "services/files/steadyread.h"
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

int Open(const std::string& path, int how, mode_t permissions = 0) {
    return Uninterrupted([&] { return open(Native(path), how, permissions); });
}

bool Look(const std::string& path, struct stat* status) {
    return Uninterrupted([&] { return stat(Native(path), status); }) == 0;
}
bool Look(int descriptor, struct stat* status) {
    return Uninterrupted([&] { return fstat(descriptor, status); }) == 0;
}

/// Where a file is taken for a folder, nothing is.
TFileResult FailToFind(int error) {
    TFileResult result = FailWith(error);
    if (error == ENOTDIR) result.Fault = TFileFault::Missing;
    return result;
}

TFileResult CheckRegular(const struct stat& status) {
    if (S_ISDIR(status.st_mode)) return FailWith(EISDIR);
    if (!S_ISREG(status.st_mode)) return {TFileFault::Other, kNotRegular};
    return {};
}

/// Of a descriptor that stays the caller's.
class TReadFile : public IOpenFile {
public:
    explicit TReadFile(int descriptor) : Descriptor(descriptor) {}

    TFileResult Look(TFileState* state) override {
        struct stat status = {};
        if (!::Look(Descriptor, &status)) return FailWith(errno);
        *state = {static_cast<std::uint64_t>(status.st_size), NanosecondsOf(status)};
        return {};
    }
    TFileResult ReadSome(char* place, std::size_t room, std::size_t* count) override {
        const ssize_t size = Uninterrupted([&] { return read(Descriptor, place, room); });
        *count = size < 0 ? 0 : static_cast<std::size_t>(size);
        return ResultOf(size < 0 ? -1 : 0);
    }
    TFileResult Rewind() override { return ResultOf(lseek(Descriptor, 0, SEEK_SET) == 0 ? 0 : -1); }

private:
    const int Descriptor;
};

/// Some file systems have nothing to flush, and say so.
int FlushToDisk(int descriptor) {
    return Uninterrupted([&] { return fsync(descriptor); }) == 0 || errno == EINVAL ? 0 : -1;
}

/// Only the administrator may give files away; everybody may give them to a group of his own.
void TakeOverOwner(int descriptor, const struct stat& from) {
    const auto giveTo = [&](uid_t user) {
        return Uninterrupted([&] { return fchown(descriptor, user, from.st_gid); }) == 0;
    };
    if (!giveTo(from.st_uid) && !giveTo(static_cast<uid_t>(-1))) errno = 0;
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
    const ssize_t size =
        Uninterrupted([&] { return getxattr(from, name, value.data(), value.size()); });
    if (size < 0) return MayBeMissed(errno);
    value.resize(static_cast<std::size_t>(size));
    const auto set = [&] { return fsetxattr(descriptor, name, value.data(), value.size(), 0); };
    return Uninterrupted(set) == 0 || MayBeMissed(errno);
}

/// Access lists are among the extended attributes.
bool TakeOverAttributes(int descriptor, const char* from) {
    std::string names(XATTR_LIST_MAX, '\0');
    const ssize_t size = Uninterrupted([&] { return listxattr(from, names.data(), names.size()); });
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
    struct stat status = {};
    if (!Look(path, &status)) return FailToFind(errno);
    // Opening a device may already do something.
    TFileResult result = CheckRegular(status);
    if (!result.IsDone()) return result;
    // A pipe that takes the file's place meanwhile must not keep us waiting.
    const TDescriptor descriptor(Open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!descriptor.IsOpen() || !Look(descriptor.Get(), &status)) return FailToFind(errno);
    result = CheckRegular(status);
    if (!result.IsDone()) return result;
    TReadFile file(descriptor.Get());
    return ReadSteadily(file, limit, bytes);
}

TFileResult TNativeFileSystem::CheckReplaceable(const std::string& path) {
    struct stat status = {};
    if (!Look(path, &status)) return FailWith(errno);
    // A device or pipe would be gone afterwards.
    TFileResult result = CheckRegular(status);
    if (!result.IsDone()) return result;
    // Renaming would silently overwrite a write-protected file.
    return ResultOf(Uninterrupted([&] { return access(Native(path), W_OK); }));
}

TFileResult TNativeFileSystem::Create(const std::string& path, bool isPrivate, TFileNumber* file) {
    const int descriptor =
        Open(path, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, isPrivate ? 0600 : 0666);
    *file = descriptor;
    return ResultOf(descriptor < 0 ? -1 : 0);
}

TFileResult TNativeFileSystem::Write(TFileNumber file, std::string_view bytes, std::size_t* count) {
    const ssize_t written =
        Uninterrupted([&] { return write(static_cast<int>(file), bytes.data(), bytes.size()); });
    *count = written < 0 ? 0 : static_cast<std::size_t>(written);
    return ResultOf(written < 0 ? -1 : 0);
}

/// Owner and attributes come first: changing them changes some permissions.
TFileResult TNativeFileSystem::TakeOver(TFileNumber file, const std::string& from) {
    const int descriptor = static_cast<int>(file);
    struct stat former = {};
    struct stat present = {};
    if (!Look(from, &former)) return FailWith(errno);
    TakeOverOwner(descriptor, former);
    if (!TakeOverAttributes(descriptor, Native(from)) || !Look(descriptor, &present))
        return FailWith(errno);
    mode_t permissions = former.st_mode & kPermissions;
    if (present.st_uid != former.st_uid || present.st_gid != former.st_gid)
        permissions &= static_cast<mode_t>(~(S_ISUID | S_ISGID));
    // Where all files have the same permissions, asking for them may be an error.
    if ((present.st_mode & kPermissions) == permissions) return {};
    return ResultOf(Uninterrupted([&] { return fchmod(descriptor, permissions); }));
}

TFileResult TNativeFileSystem::Flush(TFileNumber file) {
    return ResultOf(FlushToDisk(static_cast<int>(file)));
}

/// Also a late write error of a network drive arrives here. When it is interrupted, the number is
/// free all the same.
TFileResult TNativeFileSystem::Close(TFileNumber file) {
    return ResultOf(close(static_cast<int>(file)) == 0 || errno == EINTR ? 0 : -1);
}

TFileResult TNativeFileSystem::Link(const std::string& path, const std::string& secondName) {
    return ResultOf(Uninterrupted([&] { return link(Native(path), Native(secondName)); }));
}

TFileResult TNativeFileSystem::Rename(const std::string& from, const std::string& to) {
    return ResultOf(Uninterrupted([&] { return rename(Native(from), Native(to)); }));
}

TFileResult TNativeFileSystem::FlushFolder(const std::string& folder) {
    const TDescriptor descriptor(Open(folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.IsOpen()) return ResultOf(FlushToDisk(descriptor.Get()));
    // A folder that takes files without letting the user list them cannot be flushed by him.
    return errno == EACCES ? TFileResult() : FailWith(errno);
}
