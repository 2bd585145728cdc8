#pragma once
#include <string>

class ISFileName;

/// In which form paths are told.
struct TPathForm {
    TPathForm();

    std::string Directory;  ///< the current directory, which paths are told relative to
    bool Absolute = false;
};

std::string PathText(const char* path, const TPathForm& form);
/// "" without a file.
std::string PathText(const ISFileName* file, const TPathForm& form);
