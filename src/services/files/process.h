#pragma once
#include <string>

// What the operating system tells of the running process. Texts are in UTF-8.

/// The value of an environment variable; "" when it is not set.
std::string GetEnvironmentText(const char* name);
/// The file of the library or program that this code is part of.
std::string GetModuleFile();
/// The folder for the user's configuration files.
std::string GetConfigurationFolder();
