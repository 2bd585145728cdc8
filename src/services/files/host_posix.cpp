#include "services/files/host.h"
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

/// Canonical paths that begin otherwise belong to another system; "" names no file.
const char* Native(const std::string& path) {
    return !path.empty() && path[0] == '/' ? path.c_str() : "";
}

std::int64_t NanosecondsOf(const struct stat& status) {
#ifdef __APPLE__
    const timespec& time = status.st_mtimespec;
#else
    const timespec& time = status.st_mtim;
#endif
    return static_cast<std::int64_t>(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

std::string RealPath(const char* path) {
    char* const real = realpath(path, nullptr);
    if (!real) return {};
    std::string text = real;
    // The C library allocated it.
    std::free(real);
    return text;
}

std::string HomeFolder() {
    std::string home = Host::EnvironmentVariable("HOME");
    if (!home.empty()) return home;
    const passwd* user = getpwuid(getuid());
    return user && user->pw_dir ? user->pw_dir : "/";
}

}  // namespace

namespace Host {

std::string WorkingDirectory(std::string_view) {
    char buffer[PATH_MAX];
    if (const char* directory = getcwd(buffer, sizeof buffer)) return directory;
    std::vector<char> longer(sizeof buffer);
    while (errno == ERANGE) {
        longer.resize(longer.size() * 2);
        if (const char* directory = getcwd(longer.data(), longer.size())) return directory;
    }
    return "/";
}

TFileStatus StatusOf(const std::string& path) {
    struct stat status = {};
    if (stat(Native(path), &status) != 0) return {};
    return {true, S_ISDIR(status.st_mode), NanosecondsOf(status), status.st_size};
}

bool CanRead(const std::string& path) {
    return access(Native(path), R_OK) == 0;
}

bool CanWrite(const std::string& path) {
    return access(Native(path), W_OK) == 0;
}

std::string ExpandLinks(const std::string& path) {
    return RealPath(Native(path));
}

bool RemoveEntry(const std::string& path) {
    return std::remove(Native(path)) == 0;
}

bool MakeFolder(const std::string& path) {
    return mkdir(Native(path), 0777) == 0;
}

bool ChangeWorkingDirectory(const std::string& path) {
    return chdir(Native(path)) == 0;
}

std::string EnvironmentVariable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string ModuleFile() {
    Dl_info info = {};
    std::string file;
    if (dladdr(reinterpret_cast<const void*>(&ModuleFile), &info) != 0 && info.dli_fname)
        file = info.dli_fname;
    if (!file.empty() && file[0] == '/') return file;
    // A program is known by the text that started it, which may be a bare name or relative to a
    // directory that is no longer the working directory.
    std::string real = RealPath("/proc/self/exe");
    return real.empty() ? RealPath(file.c_str()) : real;
}

std::string ConfigurationFolder() {
    std::string folder = EnvironmentVariable("XDG_CONFIG_HOME");
    // The desktop's rules tell to ignore a relative one.
    return !folder.empty() && folder[0] == '/' ? folder : HomeFolder() + "/.config";
}

}  // namespace Host
