#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

// To be preloaded into a program on Linux. Writes down what the program does to the files below the
// folder TORTURE_FOLDER, one line a call that is done, into the file TORTURE_RECORD:
//
//     open <number> <1 if made> <path>      close <number>         fsync <number>
//     write <number> <count>, and the bytes on a line of their own
//     rename <path> TAB <path>              link <path> TAB <path>  unlink <path>
//     other <name of a call that the replayer does not know>
//
// TORTURE_SHORT is the most that one read or write of these files takes.

namespace {

constexpr int kMostFiles = 1024;
bool IsWatched[kMostFiles];

bool IsWatchedFile(int file) {
    return file >= 0 && file < kMostFiles && IsWatched[file];
}

bool IsWatchedPath(const char* path) {
    const char* const folder = std::getenv("TORTURE_FOLDER");
    return folder && path && std::strncmp(path, folder, std::strlen(folder)) == 0;
}

/// Nothing is allocated: the program may be within its allocator.
void Record(const char* text, std::size_t size) {
    const char* const path = std::getenv("TORTURE_RECORD");
    if (!path) return;
    const int error = errno;
    const long file =
        syscall(SYS_openat, AT_FDCWD, path, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    if (syscall(SYS_write, file, text, size) != static_cast<long>(size)) std::abort();
    syscall(SYS_close, file);
    errno = error;
}

[[gnu::format(printf, 1, 2)]] void RecordLine(const char* format, ...) {
    char line[10'000];
    std::va_list values;
    va_start(values, format);
    const int size = std::vsnprintf(line, sizeof line, format, values);
    va_end(values);
    if (size < 0 || static_cast<std::size_t>(size) >= sizeof line) std::abort();
    Record(line, static_cast<std::size_t>(size));
}

std::size_t Shortened(int file, std::size_t size) {
    const char* const most = std::getenv("TORTURE_SHORT");
    const std::size_t limit = most ? std::strtoul(most, nullptr, 10) : size;
    return IsWatchedFile(file) && size > limit ? limit : size;
}

int Open(int folder, const char* path, int how, unsigned permissions) {
    const int file = static_cast<int>(syscall(SYS_openat, folder, path, how, permissions));
    if (file < 0 || file >= kMostFiles) return file;
    IsWatched[file] = IsWatchedPath(path);
    constexpr int kMaking = O_CREAT | O_EXCL;
    if (IsWatched[file]) RecordLine("open %d %d %s\n", file, (how & kMaking) == kMaking, path);
    // What is there is changed in place.
    if (IsWatched[file] && (how & O_TRUNC)) RecordLine("other open\n");
    return file;
}

long Write(long count, int file, const void* bytes) {
    if (count <= 0 || !IsWatchedFile(file)) return count;
    RecordLine("write %d %ld\n", file, count);
    Record(static_cast<const char*>(bytes), static_cast<std::size_t>(count));
    Record("\n", 1);
    return count;
}

/// Of a call that returns 0 when it is done.
int Done(long status, const char* call, const char* from, const char* to) {
    if (status == 0 && (IsWatchedPath(from) || IsWatchedPath(to)))
        RecordLine("%s %s%s%s\n", call, from, to ? "\t" : "", to ? to : "");
    return static_cast<int>(status);
}

int Flush(long status, int file) {
    if (status == 0 && IsWatchedFile(file)) RecordLine("fsync %d\n", file);
    return static_cast<int>(status);
}

}  // namespace

// The C library's own declarations differ in attributes from system to system.
extern "C" {

int open(const char* path, int how, ...) {
    std::va_list values;
    va_start(values, how);
    const unsigned permissions = va_arg(values, unsigned);
    va_end(values);
    return Open(AT_FDCWD, path, how, permissions);
}
int open64(const char* path, int how, ...) {
    std::va_list values;
    va_start(values, how);
    const unsigned permissions = va_arg(values, unsigned);
    va_end(values);
    return Open(AT_FDCWD, path, how, permissions);
}
int openat(int folder, const char* path, int how, ...) {
    std::va_list values;
    va_start(values, how);
    const unsigned permissions = va_arg(values, unsigned);
    va_end(values);
    return Open(folder, path, how, permissions);
}
ssize_t read(int file, void* place, size_t size) {
    return syscall(SYS_read, file, place, Shortened(file, size));
}
ssize_t write(int file, const void* bytes, size_t size) {
    return Write(syscall(SYS_write, file, bytes, Shortened(file, size)), file, bytes);
}
ssize_t pwrite(int file, const void* bytes, size_t size, off_t place) {
    if (IsWatchedFile(file)) RecordLine("other pwrite\n");
    return syscall(SYS_pwrite64, file, bytes, size, place);
}
ssize_t pwrite64(int file, const void* bytes, size_t size, off64_t place) {
    if (IsWatchedFile(file)) RecordLine("other pwrite64\n");
    return syscall(SYS_pwrite64, file, bytes, size, place);
}
ssize_t writev(int file, const struct iovec* parts, int count) {
    if (IsWatchedFile(file)) RecordLine("other writev\n");
    return syscall(SYS_writev, file, parts, count);
}
int ftruncate(int file, off_t size) noexcept {
    if (IsWatchedFile(file)) RecordLine("other ftruncate\n");
    return static_cast<int>(syscall(SYS_ftruncate, file, size));
}
int close(int file) {
    if (IsWatchedFile(file)) {
        IsWatched[file] = false;
        RecordLine("close %d\n", file);
    }
    return static_cast<int>(syscall(SYS_close, file));
}
int fsync(int file) {
    return Flush(syscall(SYS_fsync, file), file);
}
int fdatasync(int file) {
    return Flush(syscall(SYS_fdatasync, file), file);
}
int rename(const char* from, const char* to) noexcept {
    return Done(syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0), "rename", from, to);
}
int link(const char* from, const char* to) noexcept {
    return Done(syscall(SYS_linkat, AT_FDCWD, from, AT_FDCWD, to, 0), "link", from, to);
}
int unlink(const char* path) noexcept {
    return Done(syscall(SYS_unlinkat, AT_FDCWD, path, 0), "unlink", path, nullptr);
}
int remove(const char* path) noexcept {
    const int status = unlink(path);
    if (status == 0 || errno != EISDIR) return status;
    return Done(syscall(SYS_unlinkat, AT_FDCWD, path, AT_REMOVEDIR), "other rmdir", path, nullptr);
}
}
