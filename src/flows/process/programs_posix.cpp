#include "flows/process/programs.h"
#include <cstdlib>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool IsProgram(const std::string& path) {
    // Folders may be entered, which the system calls by the same name.
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
           access(path.c_str(), X_OK) == 0;
}

/// Nothing but a single quote means anything within single quotes.
std::string QuotedWord(const std::string& word) {
    constexpr const char* kPlain =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_./-+=:,@%";
    if (!word.empty() && word.find_first_not_of(kPlain) == std::string::npos) return word;
    std::string quoted = "'";
    for (const char c : word)
        if (c == '\'')
            quoted += "'\\''";
        else
            quoted += c;
    return quoted + "'";
}

}  // namespace

std::string FindProgram(const std::string& name, const std::vector<std::string>& folders) {
    const std::string file = "/" + name;
    for (const std::string& folder : folders)
        if (std::string path = folder + file; IsProgram(path)) return path;
    const char* const variable = std::getenv("PATH");
    std::istringstream stream(variable ? variable : "");
    for (std::string path; std::getline(stream, path, ':');) {
        if (path.empty()) path = ".";
        path += file;
        if (IsProgram(path)) return path;
    }
    return {};
}

std::string GetOwnProgram() {
    std::string path(4096, '\0');
    const ssize_t size = readlink("/proc/self/exe", path.data(), path.size());
    path.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
    return path;
}

std::string CommandLineOf(const std::vector<std::string>& words) {
    std::string line;
    for (const std::string& word : words)
        line.append(line.empty() ? "" : " ").append(QuotedWord(word));
    return line;
}
