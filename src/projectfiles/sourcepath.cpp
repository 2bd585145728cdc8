#include "projectfiles/sourcepath.h"
#include "projectfiles/ihdlsourcefile.h"
#include "services/names/isfilename.h"

std::string RelativeSourcePath(const IHdlSourceFile& source, const ISFileName* file) {
    const ISFileName* name = source.GetFileName();
    if (!name) return {};
    if (!file) return name->Canonical(false);
    TMyString path;
    name->GetFileNameRelativeTo(file->GetPathOnly(), &path);
    return path.Str();
}
