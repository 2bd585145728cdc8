#include "services/names/ifilename.h"
#include "services/files/pathpieces.h"
#include "services/files/pathtext.h"

void IFileName::CreateRelativeFileName(const char* base, const char* path, std::string* out, bool,
                                       bool) {
    if (!out) return;
    const std::string given = path ? path : "";
    *out = IsRelativePath(given.c_str())
               ? given
               : RelativeToDirectory(CanonicalPath(base ? base : ""), CanonicalPath(given));
}

void IFileName::CreateNiceFileNameForUI(const char* base, const char* path, std::string* out) {
    if (!out) return;
    const std::string given = path ? path : "";
    std::string relative;
    CreateRelativeFileName(base, given.c_str(), &relative, false, false);
    *out = LeavesDirectory(relative) && !IsRelativePath(given.c_str()) ? CanonicalPath(given)
                                                                       : std::move(relative);
}
