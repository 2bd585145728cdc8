#pragma once
#include <string>

/// A directory that need not exist, in the host's form.
#ifdef _WIN32
inline const std::string kProject = "C:\\project\\";
#else
inline const std::string kProject = "/project/";
#endif

inline std::string Below(const std::string& name) {
    return kProject + name;
}
