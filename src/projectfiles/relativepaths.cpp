#include "projectfiles/relativepaths.h"
#include "projectfiles/sourcename.h"
#include "services/files/pathtext.h"

TRelativePaths::TRelativePaths(const ISFileName* file)
    : File(file), Directory(file ? CanonicalPath(file->GetPathOnly()) : std::string()) {}

std::string_view TRelativePaths::Of(const ISFileName* name) {
    if (File && IsSharedHandle(name)) return Directory.MakeRelative(GetSharedText(name));
    Other = RelativePath(name, File);
    return Other;
}
