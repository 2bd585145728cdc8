#pragma once
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>

inline bool IsInstalled(const std::string& program) {
    return std::system(("command -v " + program + " >/dev/null 2>&1").c_str()) == 0;
}

/// Runs a command; its status and its output, both streams.
inline std::pair<int, std::string> Shell(const std::string& command) {
    std::string output;
    std::FILE* const pipe = popen(("{ " + command + "; } 2>&1").c_str(), "r");
    if (!pipe) return {-1, ""};
    char buffer[4096];
    for (std::size_t size; (size = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
        output.append(buffer, size);
    return {pclose(pipe), output};
}
