#pragma once
#include <cstdlib>
#include <filesystem>
#include <string>

#ifdef _WIN32
inline constexpr bool kOnWindows = true;
#else
inline constexpr bool kOnWindows = false;
#endif

/// A path written with '/' as the host prints one that has no drive or host name.
inline std::string HostForm(std::string path) {
    if (kOnWindows)
        for (char& c : path)
            if (c == '/') c = '\\';
    return path;
}

inline std::string WithSlashes(std::string path) {
    for (char& c : path)
        if (c == '\\') c = '/';
    return path;
}

/// Makes a directory the working directory for its lifetime.
class WorkingDirectory {
public:
    explicit WorkingDirectory(const std::string& path) : Former(std::filesystem::current_path()) {
        std::filesystem::current_path(std::u8string(path.begin(), path.end()));
    }
    ~WorkingDirectory() { std::filesystem::current_path(Former); }
    WorkingDirectory(const WorkingDirectory&) = delete;
    WorkingDirectory& operator=(const WorkingDirectory&) = delete;
    static std::string Text() {
        const auto text = std::filesystem::current_path().u8string();
        return {text.begin(), text.end()};
    }

private:
    std::filesystem::path Former;
};

/// Gives an environment variable a value for its lifetime; null removes it.
class EnvironmentValue {
public:
    EnvironmentValue(const char* name, const char* value) : Name(name) {
        const char* former = std::getenv(name);
        WasSet = former != nullptr;
        Former = former ? former : "";
        Set(value);
    }
    ~EnvironmentValue() { Set(WasSet ? Former.c_str() : nullptr); }
    EnvironmentValue(const EnvironmentValue&) = delete;
    EnvironmentValue& operator=(const EnvironmentValue&) = delete;

private:
    void Set(const char* value) {
#ifdef _WIN32
        _putenv_s(Name.c_str(), value ? value : "");
#else
        if (value)
            setenv(Name.c_str(), value, 1);
        else
            unsetenv(Name.c_str());
#endif
    }

    std::string Name;
    std::string Former;
    bool WasSet = false;
};
