#pragma once
#include <string>
#include <vector>

class ISFileName;

/// The names, separated by commas.
std::string JoinNames(const std::vector<std::string>& names);

/// In which form a command prints paths.
struct TPathForm {
    TPathForm();

    std::string Directory;  ///< the current directory, which paths are printed relative to
    bool Absolute = false;
};

std::string PathText(const char* path, const TPathForm& form);
/// "" without a file.
std::string PathText(const ISFileName* file, const TPathForm& form);
