#include "services/files/filesystem_posix.h"
#include "services/base/fold.h"
#include <cerrno>
#include <charconv>
#include <chrono>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <memory>
#include <new>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

TFileFault FaultOf(int error) {
    switch (error) {
        case ENOENT:
            return TFileFault::Missing;
        case EINVAL:
            return TFileFault::NotALink;
        case EEXIST:
            return TFileFault::NameTaken;
        case EBUSY:
        case EWOULDBLOCK:
            return TFileFault::Busy;
        default:
            return TFileFault::Other;
    }
}

/// What tells the machine, and the container, from others that reach the same files: process
/// numbers count within it only.
std::string MarkOfMachine() {
    char text[256] = {};
    gethostname(text, sizeof text - 1);
    std::string machine = text;
    // The container's PID namespace, where the system has namespaces.
    const ssize_t length = readlink("/proc/self/ns/pid", text, sizeof text);
    if (length > 0) machine.append(text, static_cast<std::size_t>(length));
    return std::to_string(HashIgnoringCase(machine));
}

}  // namespace

std::int64_t NanosecondsOf(const struct stat& status) {
#ifdef __APPLE__
    const timespec& time = status.st_mtimespec;
#else
    const timespec& time = status.st_mtim;
#endif
    return static_cast<std::int64_t>(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

IFileSystem& GetNativeFileSystem() {
    // Never destroyed: files are written until the very end of the process.
    static TNativeFileSystem& system = *new TNativeFileSystem;
    return system;
}

TFileResult FailWith(int error) {
    const TFileFault fault = FaultOf(error);
    try {
        return {fault, std::strerror(error)};
    } catch (const std::bad_alloc&) {
        // What must be done all the same goes on.
        return {fault, "out of memory"};
    }
}

TFileResult ResultOf(int status) {
    return status == 0 ? TFileResult() : FailWith(errno);
}

TFileStatus TNativeFileSystem::GetStatus(const std::string& path) {
    struct stat status = {};
    TFileStatus result;
    if (Uninterrupted([&] { return stat(Native(path), &status); }) == 0)
        return {true, S_ISDIR(status.st_mode), NanosecondsOf(status), status.st_size};
    result.IsUnknown = errno != ENOENT && errno != ENOTDIR;
    return result;
}

bool TNativeFileSystem::CanRead(const std::string& path) {
    return Uninterrupted([&] { return access(Native(path), R_OK); }) == 0;
}

bool TNativeFileSystem::CanWrite(const std::string& path) {
    return Uninterrupted([&] { return access(Native(path), W_OK); }) == 0;
}

std::string TNativeFileSystem::ExpandLinks(const std::string& path) {
    // The C library allocates it.
    std::unique_ptr<char, void (*)(void*)> real(nullptr, std::free);
    do real.reset(realpath(Native(path), nullptr));
    while (!real && errno == EINTR);
    return real ? real.get() : std::string();
}

TFileResult TNativeFileSystem::ReadLink(const std::string& path, std::string* target) {
    char text[PATH_MAX];
    const ssize_t length = Uninterrupted([&] { return readlink(Native(path), text, sizeof text); });
    if (length < 0) return FailWith(errno);
    if (static_cast<std::size_t>(length) == sizeof text) return FailWith(ENAMETOOLONG);
    target->assign(text, static_cast<std::size_t>(length));
    // A relative one counts from the link's folder.
    if (!target->starts_with('/')) target->insert(0, path, 0, path.rfind('/') + 1);
    return {};
}

TFileResult TNativeFileSystem::ListFolder(const std::string& folder,
                                          std::vector<std::string>* names) {
    names->clear();
    DIR* opened = nullptr;
    do opened = opendir(Native(folder));
    while (!opened && errno == EINTR);
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opened, closedir);
    if (!entries) return FailWith(errno);
    errno = 0;
    while (const dirent* entry = readdir(entries.get())) names->emplace_back(entry->d_name);
    return ResultOf(errno);
}

TFileResult TNativeFileSystem::Remove(const std::string& path) {
    return ResultOf(Uninterrupted([&] { return std::remove(Native(path)); }));
}

TFileResult TNativeFileSystem::MakeFolder(const std::string& path) {
    return ResultOf(Uninterrupted([&] { return mkdir(Native(path), 0777); }));
}

TFileResult TNativeFileSystem::ChangeWorkingDirectory(const std::string& path) {
    return ResultOf(chdir(Native(path)));
}

std::string TNativeFileSystem::GetWorkingDirectory(std::string_view) {
    char buffer[PATH_MAX];
    if (const char* directory = getcwd(buffer, sizeof buffer)) return directory;
    std::vector<char> longer(sizeof buffer);
    while (errno == ERANGE) {
        longer.resize(longer.size() * 2);
        if (const char* directory = getcwd(longer.data(), longer.size())) return directory;
    }
    // It was removed, or may not be looked at. Relative names must not become others.
    return "/proc/self/cwd";
}

std::int64_t TNativeFileSystem::GetTime() {
    using namespace std::chrono;
    return duration_cast<nanoseconds>(system_clock::now().time_since_epoch()).count();
}

void TNativeFileSystem::Wait(std::int64_t nanoseconds) {
    constexpr std::int64_t kNanosecondsInSecond = 1'000'000'000;
    const timespec pause = {static_cast<time_t>(nanoseconds / kNanosecondsInSecond),
                            static_cast<long>(nanoseconds % kNanosecondsInSecond)};
    // A signal may end it early: whoever waits looks again then.
    nanosleep(&pause, nullptr);
}

std::string TNativeFileSystem::GetProcessMark() {
    static const std::string machine = MarkOfMachine();
    return machine + "." + std::to_string(getpid());
}

bool TNativeFileSystem::IsProcessGone(const std::string& mark) {
    const std::string own = GetProcessMark();
    const std::size_t dot = own.find('.');
    if (mark.compare(0, dot + 1, own, 0, dot + 1) != 0) return false;
    pid_t process = 0;
    std::from_chars(mark.data() + dot + 1, mark.data() + mark.size(), process);
    // Signal 0 is not sent: it asks whether the process exists. Numbers below 1 mean groups.
    return process > 0 && kill(process, 0) != 0 && errno == ESRCH;
}
