#include "projectfiles/relativepaths.h"
#include "projectfiles/sourcename.h"

TRelativePaths::TRelativePaths(const ISFileName* file)
    : File(file), Directory(file ? file->GetPathOnly() : "") {}

std::string_view TRelativePaths::Of(const ISFileName* name) {
    if (File && IsSharedHandle(name)) return Directory.MakeRelative(GetSharedText(name));
    Other = RelativePath(name, File);
    return Other;
}
