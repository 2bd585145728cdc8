#pragma once
#include <string>
#include <vector>

class THdlBuildFile;

/// What texts an attribute of the build takes.
enum TBuildAttributeKind : int {
    BUILD_LANGUAGE,
    BUILD_TIME_UNIT,
    BUILD_TEXT,
    BUILD_FLAG  ///< written only when it is set
};

/// An attribute of the element "HdlBuildFile" that users set.
struct TBuildAttribute {
    const char* Name;  ///< in files and commands
    TBuildAttributeKind Kind;
    /// The text as files hold it, and its inverse, which takes the texts of its kind.
    std::string (*Get)(const THdlBuildFile& build);
    void (*Set)(THdlBuildFile& build, const std::string& text);
};

/// All of them, in the order of files. Static.
const std::vector<TBuildAttribute>& GetBuildAttributes();
/// Null for an unknown name.
const TBuildAttribute* FindBuildAttribute(const std::string& name);
