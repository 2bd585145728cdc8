#include "services/files/process.h"
#include <cerrno>
#include <cstdlib>
#include <dlfcn.h>
#include <pwd.h>
#include <unistd.h>
#include <vector>

namespace {

std::string RealPath(const char* path) {
    char* const real = realpath(path, nullptr);
    if (!real) return {};
    std::string text = real;
    // The C library allocated it.
    std::free(real);
    return text;
}

std::string GetHomeFolder() {
    std::string home = GetEnvironmentText("HOME");
    if (!home.empty()) return home;
    passwd entry = {};
    passwd* user = nullptr;
    std::vector<char> texts(1024);
    while (getpwuid_r(getuid(), &entry, texts.data(), texts.size(), &user) == ERANGE)
        texts.resize(2 * texts.size());
    return user && user->pw_dir ? user->pw_dir : "/";
}

}  // namespace

std::string GetEnvironmentText(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string GetModuleFile() {
    Dl_info info = {};
    std::string file;
    if (dladdr(reinterpret_cast<const void*>(&GetModuleFile), &info) != 0 && info.dli_fname)
        file = info.dli_fname;
    if (!file.empty() && file[0] == '/') return file;
    // A program is known by the text that started it, which may be a bare name or relative to a
    // directory that is no longer the working directory.
    std::string real = RealPath("/proc/self/exe");
    return real.empty() ? RealPath(file.c_str()) : real;
}

std::string GetConfigurationFolder() {
    std::string folder = GetEnvironmentText("XDG_CONFIG_HOME");
    // The desktop's rules tell to ignore a relative one.
    return !folder.empty() && folder[0] == '/' ? folder : GetHomeFolder() + "/.config";
}
