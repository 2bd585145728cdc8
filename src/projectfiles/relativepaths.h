#pragma once
#include "services/files/basedirectory.h"
#include <string>
#include <string_view>

class ISFileName;

/// RelativePath for many names and one file.
class TRelativePaths {
public:
    /// `file`, which may be null, outlives the object.
    explicit TRelativePaths(const ISFileName* file);

    /// RelativePath(name, file), valid until the next call.
    std::string_view Of(const ISFileName* name);

private:
    const ISFileName* File;
    TBaseDirectory Directory;
    std::string Other;  // of a name that is not the library's own handle
};
