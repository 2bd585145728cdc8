#pragma once
#include <cstdlib>
#include <string>

/// A variable of the environment that has another value meanwhile.
class EnvironmentVariable {
public:
    EnvironmentVariable(const std::string& name, const std::string& value)
        : Name(name), Former(Get(name)) {
        Set(value);
    }
    ~EnvironmentVariable() { Set(Former); }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

private:
    static std::string Get(const std::string& name) {
        const char* const value = std::getenv(name.c_str());
        return value ? value : "";
    }
    // An empty value takes the variable out.
    void Set(const std::string& value) const {
#ifdef _WIN32
        _putenv_s(Name.c_str(), value.c_str());
#else
        if (value.empty())
            unsetenv(Name.c_str());
        else
            setenv(Name.c_str(), value.c_str(), 1);
#endif
    }

    const std::string Name;
    const std::string Former;
};
