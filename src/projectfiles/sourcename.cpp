#include "projectfiles/sourcename.h"
#include "projectfiles/ihdlsourcefile.h"

bool GetSourceName(const ISFileName* file, TSourceName* name) {
    const bool isNamed = IsSharedHandle(file) || GetInnermostHandle(file);
    *name = isNamed ? GetFileIdentity(file) : TSourceName();
    return isNamed;
}

bool GetSourceName(const IHdlSourceFile* source, TSourceName* name) {
    return GetSourceName(source->GetFileName(), name);
}

std::string RelativePath(const ISFileName* name, const ISFileName* file) {
    if (!name) return {};
    if (!file) return name->Canonical(false);
    TMyString path;
    name->GetFileNameRelativeTo(file->GetPathOnly(), &path);
    return path.Str();
}
