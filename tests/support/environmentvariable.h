#pragma once
#include <cstdlib>
#include <string>

/// A variable of the environment that is set meanwhile, and not before.
class EnvironmentVariable {
public:
    EnvironmentVariable(const std::string& name, const std::string& value) : Name(name) {
        Set(value);
    }
    ~EnvironmentVariable() { Set(""); }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

private:
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
};
