#include "projectfiles/sourcename.h"
#include "projectfiles/hdlprojectfile.h"
#include "projectfiles/hdlsourcefile.h"
#include <utility>

bool GetSourceName(const ISFileName* file, TSourceName* name) {
    // A handle gives itself, a tracked name what it wraps.
    for (const ISFileName* inner = nullptr; file && (inner = file->GetFileName()) != file;)
        file = inner;
    if (!file) return false;
    const TFileIdentity identity = GetFileIdentity(file);
    *name = {identity.Folded, identity.Hash};
    return true;
}

bool GetSourceName(const IHdlSourceFile* source, TSourceName* name) {
    return GetSourceName(source->GetFileName(), name);
}

unsigned long long GetSourceNameChangeCount() {
    return THdlProjectFile::GetHandleChangeCount() + THdlSourceFile::GetHandleChangeCount();
}
